// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

inline constexpr std::int32_t Unreadable = QUAVIX_MIDI_FILE_UNREADABLE;

/// The messages about a file: remarks go to the sink, the one failure to the caller's buffer. Texts are
/// printf formats; each message is prefixed with "Byte N: ". A failure ends the reading.
class Messages {
  public:
    Messages(const QuavixMidiFileSink& sink, char* detail, std::size_t detailSize);

    [[gnu::format(printf, 3, 4)]] void Remark(std::uint64_t offset, const char* format, ...);
    /// Sets the result of the reading. Returns false, for the caller to return.
    [[gnu::format(printf, 4, 5)]] bool Fail(std::int32_t result, std::uint64_t offset, const char* format,
                                            ...);
    /// Same because a function of the sink asked to stop.
    bool Stop() { return Fail(QUAVIX_MIDI_FILE_STOPPED, 0, "the reading was stopped."); }

    std::int32_t Result() const { return result_; }

  private:
    const QuavixMidiFileSink& sink_;
    char* detail_;
    std::size_t detailSize_;
    int remarks_ = 0;
    std::int32_t result_ = QUAVIX_MIDI_FILE_OK;
};

}  // namespace quavix::midi_file
