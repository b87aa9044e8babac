// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "midi/midi_event_list.h"
#include "ports/files.h"
#include "ports/midi_file_reader.h"

namespace quavix {

/// Returns true if a file name ends in ".mid" or ".midi", in any letter case.
bool IsMidiFileName(std::string_view fileName);

/// Result of opening a MIDI file.
struct OpenedMidiFile {
    /// Events in order of time; nothing if the file can't be played, or opening was stopped.
    std::optional<std::vector<TimedMidiEvent>> Events{};
    /// Reason why the file can't be played, as a sentence; empty on success, and if opening was stopped.
    std::string Problem{};
    /// Corrected faults, as sentences.
    std::vector<std::string> Remarks{};
};

/// Reads a MIDI file and puts its events in order. `progress` (may not be empty) is called with the current
/// activity, or an empty text while the file is read, and returns false to stop; handlers may run in it. Too
/// many events for the reader raise SubscriptOutOfRange.
OpenedMidiFile OpenMidiFile(const std::string& fileName, Files& disk, MidiFileReader& reader,
                            const DecodingProgress& progress);

}  // namespace quavix
