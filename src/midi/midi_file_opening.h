// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "midi/midi_event_list.h"
#include "ports/files.h"
#include "ports/midi_file_reader.h"

namespace quavix {

/// Returns true if a file is a MIDI file by its name: it ends in ".mid" or ".midi", in letters of either
/// case.
bool IsMidiFileName(std::string_view fileName);

/// Result of opening a MIDI file.
struct OpenedMidiFile {
    /// In order of time; nothing where the file can't be played, or the opening was stopped.
    std::optional<std::vector<TimedMidiEvent>> Events{};
    /// Why it can't be played, as a sentence; empty where it can, and where the opening was stopped.
    std::string Problem{};
    /// Mistakes of the file that were put right, as sentences.
    std::vector<std::string> Remarks{};
};

/// Reads a MIDI file and puts its events in order. `progress` (may not be empty) is called with what is being
/// done, with an empty text while the file is read, and ends the opening with false; handlers may run in it.
/// A file with more events than the reader takes raises SubscriptOutOfRange.
OpenedMidiFile OpenMidiFile(const std::string& fileName, Files& disk, MidiFileReader& reader,
                            const DecodingProgress& progress);

}  // namespace quavix
