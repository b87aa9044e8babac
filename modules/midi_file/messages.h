// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

/// The messages about a file: remarks go to the sink, the one failure to the caller's buffer. Texts are
/// printf formats; each message is prefixed with "Byte N: ".
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
