// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/tone.h"

namespace quavix {

// MIDI note numbers, and the names of instruments in lists. Octave 0 begins at MIDI note 0, so 60 is "C5": an
// octave higher than a synthesizer sounds it. Numbers are not limited to 0..127.

/// Returns a note's (0..11) MIDI note number: octave × 12 + note. Raises Overflow outside 32 bits.
std::int32_t NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum);

/// Returns the note string of a MIDI note number: 60 is "C5", 127 is "G10". Octaves are rounded towards 0: -1
/// is "-0", -2 is "0".
std::string MIDIToNoteString(std::int32_t midiNoteNum);

/// Makes the tone of a MIDI note number, 0..127.
Tone ToneOfMidiNote(std::int32_t midiNoteNum, double durationMs, const ToneOptions& options = {});

/// Returns the name of an instrument by its program number, 0..127; an empty text for any other number.
std::string MIDIInstrumentName(std::int32_t instrument);

/// Same in the form of lists, which count from 1: "1 - Grand Piano" for 0.
std::string MIDIInstrumentListText(std::int32_t instrument);

}  // namespace quavix
