// SPDX-License-Identifier: MIT
#include "midi/midi_input.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_midi_in_form.h"

namespace quavix {

void SetUpMIDIInForm(ModWindow& form, MidiInput& midi, EventBoundary& handlers) {
    Ui::MIDIInForm ui{};
    ui.setupUi(&form);
    ui.cmbMIDIInDevice->Bind(
        midi.MIDIInDevices, midi.cmbMIDIInDevice, handlers, [&midi] { midi.FindDevices(); },
        [&midi](std::int32_t entry) { midi.cmbMIDIInDevice_Click(entry); });
    BindLabel(ui.lblInfoText, midi.lblInfoText);
    ui.panelLayout->addWidget(MakeHeldNotesPanel(midi, 60, handlers, &form));
    form.resize(form.sizeHint());
}

}  // namespace quavix
