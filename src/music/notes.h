// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ports/message_boxes.h"

namespace quavix {

// Note strings ("C4", "A#5"): a note name, sharps only, and one octave digit. Note numbers are 0 (C) to 11
// (B); -1 is "no note". In octave 4, A is 440 Hz.

/// Returns the note number of a note string, upper case only, or -1 if unknown. Ignores the octave.
std::int16_t FindNoteNum(std::string_view letterAndOctave);

/// Same as FindNoteNum(), but shows a warning if the name is unknown.
std::int16_t LetterToNoteNum(std::string_view letterAndOctave, MessageBoxes& boxes);

/// Returns the name of a note number, "-" for -1, an empty text for any other number.
std::string NoteNumToLetter(std::int32_t noteNum);

/// Returns the octave of a note string: the value of its last character alone, 0 if that is no digit.
std::int32_t OctaveOf(std::string_view noteString);

/// Returns the frequency in Hz: that of octave 7 in whole hertz, doubled or halved per octave, so that C#4 is
/// 277.125. A note number outside 0..11 gives 0. Raises Overflow if the octave is more than 255 away from 7,
/// or the frequency exceeds 32 bits.
double NoteFrequency(std::int32_t noteNum, std::int32_t octaveNum);

/// Returns the note string of a note number and an octave. With `ignoreMotorOct` the octave stays; otherwise
/// it is lowered by `motorOct` and moved towards the motor's range C1 to F3 (a note above F that is still
/// above octave 3 stays there, and the motor does not play it).
std::string NoteNumToNoteString(std::int32_t noteNum, std::int32_t octaveNum, bool ignoreMotorOct,
                                std::int32_t motorOct);

}  // namespace quavix
