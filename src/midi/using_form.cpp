// SPDX-License-Identifier: MIT
#include "midi/using_form.h"

#include <algorithm>

#include "shell/runtime_error.h"

namespace quavix {
namespace {

std::size_t Checked(std::int32_t note) {
    if (note < 0 || note >= UsingForm::Notes)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return static_cast<std::size_t>(note);
}

}  // namespace

UsingForm::UsingForm(EventBoundary& handlers) {
    for (Watched<bool>& check : ListenChannelCheck) {
        check = true;
        check.Watch(handlers.Wrap("ListenChannelCheck_Click", [this](bool ticked) {
            if (!ticked)
                ReleaseAllNotes();
        }));
    }
    OnlyOnceCheck.Watch(
        handlers.Wrap("OnlyOnceCheck_Click", [this](bool ticked) { OnlyPlayNoteOnce = ticked; }));
}

bool UsingForm::GetMIDINoteIsOn(std::int32_t checkIndex) const {
    return notes_[Checked(checkIndex)] == NoteState::Held;
}

void UsingForm::SetMIDINoteHasPlayed(std::int32_t setIndex) {
    notes_[Checked(setIndex)] = NoteState::HasPlayed;
}

bool UsingForm::HoldsNotes() const {
    return std::ranges::find(notes_, NoteState::Held) != notes_.end();
}

void UsingForm::TakeMessage(std::int32_t status, std::int32_t data1, std::int32_t data2) {
    constexpr std::int32_t FirstNoteOff = 0x80;
    constexpr std::int32_t FirstNoteOn = 0x90;
    constexpr std::int32_t LastNoteOn = 0x9F;
    constexpr std::int32_t ChannelBits = 0x0F;
    if (status < FirstNoteOff || status > LastNoteOn)
        return;
    if (!ListenChannelCheck[static_cast<std::size_t>(status & ChannelBits)])
        return;
    NoteState& note = notes_[Checked(data1)];
    if (status < FirstNoteOn || data2 == 0)
        note = NoteState::NotHeld;
    else if (note == NoteState::NotHeld)
        note = NoteState::Held;
}

void UsingForm::SimulateMIDIMessage(std::int32_t message, std::int32_t data1, std::int32_t data2) {
    if (data1 >= 0 && data1 < Notes)
        TakeMessage(message, data1, data2);
}

}  // namespace quavix
