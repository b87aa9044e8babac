// SPDX-License-Identifier: MIT
#include "midi/using_form.h"

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

UsingForm::UsingForm(EventBoundary& handlers) {
    for (std::int32_t index = 0; index < Channels; ++index) {
        Watched<bool>& check = ListenChannelCheck[static_cast<std::size_t>(index)];
        check = true;
        check.Watch(
            handlers.Wrap("ListenChannelCheck_Click", [this, index] { ListenChannelCheck_Click(index); }));
    }
    OnlyOnceCheck.Watch(handlers.Wrap("OnlyOnceCheck_Click", [this] { OnlyOnceCheck_Click(); }));
}

bool UsingForm::HoldsNotes() const {
    for (std::int32_t note = 0; note < HeldNotes::Count; ++note) {
        if (GetMIDINoteIsOn(note))
            return true;
    }
    return false;
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
    if (status < FirstNoteOn || data2 == 0)
        notes_.Release(data1);
    else
        notes_.Press(data1);
}

void UsingForm::SimulateMIDIMessage(std::int32_t message, std::int32_t data1, std::int32_t data2) {
    if (data1 >= 0 && data1 < HeldNotes::Count)
        TakeMessage(message, data1, data2);
}

void UsingForm::ListenChannelCheck_Click(std::int32_t index) {
    if (!ListenChannelCheck[static_cast<std::size_t>(index)])
        notes_.ReleaseAll();
}

void UsingForm::OnlyOnceCheck_Click() {
    OnlyPlayNoteOnce = OnlyOnceCheck;
}

}  // namespace quavix
