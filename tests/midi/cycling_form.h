// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "midi/using_form.h"

namespace quavix::test {

/// Returns the numbers of the notes that are held, each followed by a blank.
inline std::string NotesHeldIn(const UsingForm& form) {
    std::string text;
    for (std::int32_t note = 0; note < UsingForm::Notes; ++note) {
        if (form.GetMIDINoteIsOn(note))
            text += std::to_string(note) + " ";
    }
    return text;
}

/// The plainest form that cycles through held notes.
class CyclingForm final : public UsingForm {
  public:
    using UsingForm::UsingForm;

    void Press(std::initializer_list<std::int32_t> notes) {
        for (const std::int32_t note : notes)
            TakeMessage(0x90, note, 64);
    }

    void PressRange(std::int32_t first, std::int32_t count) {
        for (std::int32_t note = first; note < first + count; ++note)
            TakeMessage(0x90, note, 64);
    }

    /// Takes messages of a status and two data bytes, and returns the notes that are held then.
    std::string HeldAfter(std::initializer_list<std::array<std::int32_t, 3>> messages) {
        for (const auto& [status, note, velocity] : messages)
            TakeMessage(status, note, velocity);
        return NotesHeldIn(*this);
    }

    void Release(std::initializer_list<std::int32_t> notes) {
        for (const std::int32_t note : notes)
            TakeMessage(0x80, note, 64);
    }

    /// Returns the notes in the grid as "C5 *E5 G5 ", with a star before the note that is being pulsed.
    std::string Grid() const {
        std::string text;
        for (const OnNoteLabel& label : lblOnNotes.Get()) {
            if (label.Visible)
                text += (label.Colour == OnNoteLabel::Pulsed ? "*" : "") + label.Caption + " ";
        }
        return text;
    }
};

}  // namespace quavix::test
