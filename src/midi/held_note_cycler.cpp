// SPDX-License-Identifier: MIT
#include "midi/held_note_cycler.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "midi/midi_notes.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

void HeldNoteCycler::PlayLiveMIDIInput(UsingForm& usingForm) {
    const bool saveCPU = usingForm.SaveCPUCheck;
    UsingForm::OnNoteLabels labels = usingForm.lblOnNotes;
    for (OnNoteLabel& label : labels)
        label.Visible = false;

    std::array<std::int32_t, UsingForm::Notes> held{};
    std::int32_t count = 0;
    for (std::int32_t note = 0; note < UsingForm::Notes; ++note) {
        if (!usingForm.GetMIDINoteIsOn(note))
            continue;
        if (!saveCPU && count < UsingForm::Labels)
            labels[static_cast<std::size_t>(count)] = {MIDIToNoteString(note), OnNoteLabel::Listed, true};
        held[static_cast<std::size_t>(count++)] = note;
    }

    if (count > UsingForm::Labels)
        usingForm.lblMoreOnNotes = fmt::format("({} more)", count - UsingForm::Labels);
    usingForm.lblMoreOnNotesVisible = count > UsingForm::Labels;
    if (usingForm.AutoTimeCheck)
        SetAlternateTime(count);
    usingForm.lblHeldCount = fmt::format(" ({})", count);

    if (cycleIndex_ >= count)
        cycleIndex_ = 0;
    const auto next = static_cast<std::size_t>(cycleIndex_);
    if (count > 0 && next < labels.size())
        labels[next].Colour = OnNoteLabel::Pulsed;
    usingForm.lblOnNotes = labels;
    if (count < 1)
        generator_.FMODBeepStop();
    else
        Pulse(usingForm, held[next]);
}

/// Sets 30 ms per cycle, at most 15 ms per pulse. The field marks most of these values as too short.
void HeldNoteCycler::SetAlternateTime(std::int32_t count) {
    constexpr double CycleMs = 30;
    constexpr std::int32_t LongestMs = 15;
    song_.AlternateTime.SetForNow(std::min(ToInt32(CycleMs / std::max(count, 1)), LongestMs));
}

void HeldNoteCycler::Pulse(UsingForm& usingForm, std::int32_t note) {
    {
        const ScopedValue shown(view_.BeepTextLabelVisible, true, false);
        tones_.Sound(
            ToneOfMidiNote(note, song_.AlternateTime, {.SpecificContinuous = true, .FMODNoWait = true}));
    }
    // If the note was released during the tone, marking it as played would keep it silent when struck again.
    if (usingForm.OnlyPlayNoteOnce && usingForm.GetMIDINoteIsOn(note))
        usingForm.SetMIDINoteHasPlayed(note);
    ++cycleIndex_;
}

}  // namespace quavix
