// SPDX-License-Identifier: MIT
#include "music/tone.h"

#include "music/notes.h"
#include "shell/numbers.h"

namespace quavix {

Tone Tone::OfText(const std::string& text, double durationMs, const ToneOptions& options) {
    const std::int16_t noteNum = FindNoteNum(text);
    const std::int32_t octave = OctaveOf(text);
    return {text,       noteNum, octave, options.NoteIsFrequency ? Val(text) : NoteFrequency(noteNum, octave),
            durationMs, options};
}

Tone Tone::OfNote(std::int32_t noteNum, std::int32_t octave, double durationMs, const ToneOptions& options) {
    constexpr std::int32_t Digits = 10;
    const std::int32_t lastDigit = octave % Digits;
    return {NoteNumToNoteString(noteNum, octave, true, 0),
            static_cast<std::int16_t>(noteNum),
            lastDigit,
            NoteFrequency(noteNum, lastDigit),
            durationMs,
            options};
}

Tone Tone::OfFrequency(double frequency, double durationMs) {
    return {.Text = NumberText(frequency),
            .Frequency = frequency,
            .DurationMs = durationMs,
            .Options = {.NoteIsFrequency = true}};
}

std::int32_t Tone::WholeFrequency() const {
    return ToInt32(Frequency);
}

void Tone::WarnIfUnknown(MessageBoxes& boxes) const {
    if (NoteNum < 0 && !Options.NoteIsFrequency)
        LetterToNoteNum(Text, boxes);
}

}  // namespace quavix
