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

/// Returns the header of a file of format 1 with 480 ticks per quarter note.
Bytes Header(std::uint16_t tracks);

void AppendTrack(Bytes& file, const Bytes& content);

/// Returns notes with running status, as sequencers write them; the events of all tracks have the same times.
/// `tempoChanges` events, spread evenly over the first track, are tempo changes.
Bytes FileOfNotes(std::uint8_t tracks, std::uint32_t eventsPerTrack, std::uint32_t tempoChanges = 0);

}  // namespace quavix::bench
