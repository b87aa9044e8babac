// SPDX-License-Identifier: MIT
#include "music/notes.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr std::array<std::string_view, 12> Names = {"C",  "C#", "D",  "D#", "E",  "F",
                                                    "F#", "G",  "G#", "A",  "A#", "B"};

// Frequencies of octave 7 in whole hertz; fractions are left out on purpose.
constexpr std::array<std::int16_t, 12> Octave7 = {2093, 2217, 2349, 2489, 2637, 2794,
                                                  2960, 3136, 3322, 3520, 3729, 3951};

/// Returns the index of a name, or -1 if it is unknown.
std::int16_t NumberOfName(std::string_view name) {
    const auto found = std::ranges::find(Names, name);
    return static_cast<std::int16_t>(found == Names.end() ? -1 : found - Names.begin());
}

}  // namespace

std::int16_t FindNoteNum(std::string_view letterAndOctave) {
    // Two characters first, so that "C#4" is not taken for C.
    for (const std::size_t length : {2, 1}) {
        const std::int16_t number = NumberOfName(letterAndOctave.substr(0, length));
        if (number >= 0)
            return number;
    }
    return -1;
}

std::int16_t LetterToNoteNum(std::string_view letterAndOctave, MessageBoxes& boxes) {
    const std::int16_t number = FindNoteNum(letterAndOctave);
    if (number >= 0)
        return number;
    boxes.Show({.Title = "LetterToNoteNum function",
                .Text = fmt::format("LetterAndOctave is *{}*\n"
                                    "The first 1 or 2 characters aren't a recognized note name.\n"
                                    "(Returning -1 as the note number - this may cause errors!)",
                                    letterAndOctave),
                .Icon = BoxIcon::Warning});
    return -1;
}

std::string NoteNumToLetter(std::int32_t noteNum) {
    if (noteNum == -1)
        return "-";
    if (noteNum < 0 || noteNum >= static_cast<std::int32_t>(Names.size()))
        return {};
    return std::string(Names[static_cast<std::size_t>(noteNum)]);
}

std::int32_t OctaveOf(std::string_view noteString) {
    return noteString.empty() ? 0 : ToInt32(Val(noteString.substr(noteString.size() - 1)));
}

double NoteFrequency(std::int32_t noteNum, std::int32_t octaveNum) {
    constexpr std::int32_t HighestCount = 255;
    const std::int32_t octaves = ToInt16(octaveNum - 7.0);
    if (octaves > HighestCount || octaves < -HighestCount)
        throw RuntimeError(RuntimeError::Overflow);
    if (noteNum < 0 || noteNum >= static_cast<std::int32_t>(Octave7.size()))
        return 0;
    double frequency = Octave7[static_cast<std::size_t>(noteNum)];
    for (std::int32_t i = 0; i < octaves; ++i)
        frequency = ToInt32(frequency * 2);
    for (std::int32_t i = 0; i > octaves; --i)
        frequency /= 2;
    return frequency;
}

std::string NoteNumToNoteString(std::int32_t noteNum, std::int32_t octaveNum, bool ignoreMotorOct,
                                std::int32_t motorOct) {
    constexpr std::int32_t LowestMotorOctave = 1;
    constexpr std::int32_t HighestMotorOctave = 3;
    constexpr std::int32_t HighestNoteInHighestOctave = 5;  // F
    std::int32_t octave = octaveNum;
    if (!ignoreMotorOct) {
        octave = std::max(ToInt32(static_cast<double>(octaveNum) - motorOct), LowestMotorOctave);
        if (octave > HighestMotorOctave && noteNum <= HighestNoteInHighestOctave)
            octave = HighestMotorOctave;
        if (octave == HighestMotorOctave && noteNum > HighestNoteInHighestOctave)
            octave = HighestMotorOctave - 1;
    }
    return NoteNumToLetter(noteNum) + std::to_string(octave);
}

}  // namespace quavix
