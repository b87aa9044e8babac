// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/tone.h"

namespace quavix {

// MIDI note numbers, and the names that instruments have in lists. Octave 0 begins at MIDI note 0, so that 60
// is "C5": an octave higher than a synthesizer sounds it. Nothing here is held to 0..127.

/// MIDI note number of a note (0..11) in an octave: octave × 12 + note. Raises Overflow outside 32 bits.
std::int32_t NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum);

/// Note string of a MIDI note number: 60 is "C5", 127 is "G10". Octaves are rounded towards 0, which makes -1
/// the text "-0", and any other negative number one without a letter.
std::string MIDIToNoteString(std::int32_t midiNoteNum);

/// Makes the tone of a MIDI note number, 0..127.
Tone ToneOfMidiNote(std::int32_t midiNoteNum, double durationMs, const ToneOptions& options = {});

/// Name of an instrument by its program number, 0..127; an empty text for any other number.
std::string MIDIInstrumentName(std::int32_t instrument);

/// The same as it stands in lists, which count from 1: "1 - Grand Piano" for 0.
std::string MIDIInstrumentListText(std::int32_t instrument);

}  // namespace quavix
