// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ports/midi_file_reader.h"

namespace quavix {

/// One event of a MIDI file in playback order. The bytes are those of MidiFileEvent.
struct TimedMidiEvent {
    /// Milliseconds since the start of the file.
    double AbsoluteMs = 0;
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool operator==(const TimedMidiEvent&) const = default;
};

/// Shows the decoding progress ("Decoding events... 40%"). Returns false to stop.
using DecodingProgress = std::function<bool(const std::string& text)>;

/// Merges all events of a file into one list in ascending order of time; at equal times the earlier track is
/// first. Tempo changes apply to all tracks; in a file of format 2 the tracks follow each other, each with
/// its own tempo. Returns nothing if `progress`, which may not be empty, has stopped it.
std::optional<std::vector<TimedMidiEvent>> DecodeMidiFile(MidiFileContent file,
                                                          const DecodingProgress& progress);

}  // namespace quavix
