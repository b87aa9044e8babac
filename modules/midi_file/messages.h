// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

/// What is said about a file: remarks to the sink, and the one failure to the caller's buffer. Texts are
/// formats as printf takes them; "Byte N: " goes in front of each.
class Messages {
  public:
    Messages(const QuavixMidiFileSink& sink, char* detail, std::size_t detailSize);

    [[gnu::format(printf, 3, 4)]] void Remark(std::uint64_t offset, const char* format, ...);
    [[gnu::format(printf, 3, 4)]] void Fail(std::uint64_t offset, const char* format, ...);

  private:
    const QuavixMidiFileSink& sink_;
    char* detail_;
    std::size_t detailSize_;
    int remarks_ = 0;
};

}  // namespace quavix::midi_file
