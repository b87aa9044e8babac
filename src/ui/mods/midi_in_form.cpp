// SPDX-License-Identifier: MIT
#include "ui/mods/midi_in_form.h"

#include "ui/mods/held_notes_panel.h"
#include "ui/widgets/binding.h"
#include "ui_midi_in_form.h"

namespace quavix {

MIDIInForm::MIDIInForm(ModFields& mods, MidiInput& midi, EventBoundary& handlers, QWidget* owner)
    : ModWindow(midi.MIDIInFormVisible, mods.UseMIDIIn.Ticked, handlers, owner),
      ui_(std::make_unique<Ui::MIDIInForm>()) {
    ui_->setupUi(this);
    ui_->cmbMIDIInDevice->Bind(
        midi.MIDIInDevices, midi.cmbMIDIInDevice, handlers, [&midi] { midi.FindDevices(); },
        [&midi](std::int32_t entry) { midi.cmbMIDIInDevice_Click(entry); });
    ShowIn(ui_->lblInfoText, midi.lblInfoText, [label = ui_->lblInfoText](const std::string& text) {
        ShowReading(label, tr("State"), QString::fromStdString(text));
    });
    ui_->panelLayout->addWidget(new HeldNotesPanel(
        midi, tr("Try to make each cycle last 60 mS (with max alternating time capped to 30mS per note)"),
        handlers, this));
    resize(sizeHint());
}

MIDIInForm::~MIDIInForm() = default;

}  // namespace quavix
