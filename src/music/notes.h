// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ports/message_boxes.h"

namespace quavix {

// Note strings ("C4", "A#5"): a note name, sharps only, and one octave digit. Note numbers run from 0 (C) to
// 11 (B); -1 is "no note". Octave 4 holds A = 440 Hz.

/// Note number of a note string's name, or -1 where it is unknown; the octave is not read. Upper case only.
std::int16_t FindNoteNum(std::string_view letterAndOctave);

/// Note number of a note string's name; the octave is not read. Upper case only. An unknown name shows a
/// warning and gives -1.
std::int16_t LetterToNoteNum(std::string_view letterAndOctave, MessageBoxes& boxes);

/// Name of a note number, "-" for -1, an empty text for any other number.
std::string NoteNumToLetter(std::int32_t noteNum);

/// Octave of a note string: the value of its last character alone, 0 where that is no digit.
std::int32_t OctaveOf(std::string_view noteString);

/// Frequency in Hz: the whole-number frequency of octave 7, doubled or halved per octave, so that C#4 is
/// 277.125. A note number outside 0..11 gives 0. An octave more than 255 away from 7, or so high that the
/// frequency leaves 32 bits, raises Overflow.
double NoteFrequency(std::int32_t noteNum, std::int32_t octaveNum);

/// Note string of a note number and an octave. With `ignoreMotorOct` the octave is written as given;
/// otherwise it is first lowered by `motorOct` and moved towards the motor's range C1 to F3 (a note above F
/// that is still above octave 3 then is left there, where the motor knows no such note).
std::string NoteNumToNoteString(std::int32_t noteNum, std::int32_t octaveNum, bool ignoreMotorOct,
                                std::int32_t motorOct);

}  // namespace quavix
