// SPDX-License-Identifier: MIT
#include "midi/held_notes.h"

#include "shell/runtime_error.h"

namespace quavix {
namespace {

std::size_t Checked(std::int32_t note) {
    if (note < 0 || note >= HeldNotes::Count)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return static_cast<std::size_t>(note);
}

}  // namespace

HeldNotes::State HeldNotes::At(std::int32_t note) const {
    return states_[Checked(note)];
}

void HeldNotes::Press(std::int32_t note) {
    State& state = states_[Checked(note)];
    if (state == NotHeld)
        state = Held;
}

void HeldNotes::Release(std::int32_t note) {
    states_[Checked(note)] = NotHeld;
}

void HeldNotes::SetHasPlayed(std::int32_t note) {
    states_[Checked(note)] = HasPlayed;
}

}  // namespace quavix
