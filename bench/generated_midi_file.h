// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quavix::bench {

using Bytes = std::vector<std::uint8_t>;

inline std::string_view View(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The header of a file of format 1 with 480 ticks per quarter note.
Bytes Header(std::uint16_t tracks);

void AppendTrack(Bytes& file, const Bytes& content);

/// Notes with running status, as sequencers write them; all tracks' events are at the same times.
/// `tempoChanges` of them in the first track, spread over it evenly, are changes of tempo.
Bytes FileOfNotes(std::uint8_t tracks, std::uint32_t eventsPerTrack, std::uint32_t tempoChanges = 0);

}  // namespace quavix::bench
