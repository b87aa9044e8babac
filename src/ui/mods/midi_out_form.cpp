// SPDX-License-Identifier: MIT
#include "midi/midi_notes.h"
#include "midi/midi_output.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_midi_out_form.h"

namespace quavix {

void SetUpMIDIOutForm(ModWindow& form, MidiOutput& midi, EventBoundary& handlers) {
    Ui::MIDIOutForm ui{};
    ui.setupUi(&form);
    ui.cmbMIDIOutDevice->Bind(
        midi.Fields.MIDIOutDevices, midi.Fields.cmbMIDIOutDevice, handlers, [&midi] { midi.FindDevices(); },
        [&midi](std::int32_t entry) { midi.cmbMIDIOutDevice_Click(entry); });
    for (std::int32_t channel = 1; channel <= MidiOutput::Channels; ++channel)
        ui.cmbChannel->addItem(QString::number(channel));
    BindCombo(ui.cmbChannel, midi.Fields.cmbChannel, handlers,
              [&midi](std::int32_t entry) { midi.cmbChannel_Click(entry); });
    for (std::int32_t instrument = 0; !MIDIInstrumentName(instrument).empty(); ++instrument)
        ui.cmbInstrument->addItem(QString::fromStdString(MIDIInstrumentListText(instrument)));
    BindCombo(ui.cmbInstrument, midi.Fields.cmbInstrument, handlers,
              [&midi](std::int32_t entry) { midi.cmbInstrument_Click(entry); });
    BindLabel(ui.lblInfoText, midi.Fields.lblInfoText);
    // Repainted at once, because the announced action follows and may take a while.
    ShowIn(ui.lblInfoText, midi.Fields.lblInfoText,
           [label = ui.lblInfoText](const auto&) { label->repaint(); });
    form.resize(form.sizeHint());
}

}  // namespace quavix
