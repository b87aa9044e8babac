// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ports/midi_file_reader.h"

namespace quavix {

/// One event of a MIDI file in the order of playback. The bytes are as MidiFileEvent has them.
struct TimedMidiEvent {
    /// Milliseconds since the start of the file.
    double AbsoluteMs = 0;
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool operator==(const TimedMidiEvent&) const = default;
};

/// Shows how far the decoding is ("Decoding events... 40%"), and ends it with false.
using DecodingProgress = std::function<bool(const std::string& text)>;

/// Puts all events of a file into one list in ascending order of time, the earlier track first. Tempo changes
/// count for all tracks, whichever they stand in; in a file of format 2 the tracks follow each other, each
/// with its own tempo. Nothing where `progress`, which may not be empty, has ended it.
std::optional<std::vector<TimedMidiEvent>> DecodeMidiFile(MidiFileContent file,
                                                          const DecodingProgress& progress);

}  // namespace quavix
