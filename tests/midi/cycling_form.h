// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

#include "midi/using_form.h"

namespace quavix::test {

/// A form with nothing of its own.
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

    void Release(std::initializer_list<std::int32_t> notes) {
        for (const std::int32_t note : notes)
            TakeMessage(0x80, note, 64);
    }

    /// What the grid shows: "C5 *E5 G5 " with a star before the note that is being pulsed.
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
