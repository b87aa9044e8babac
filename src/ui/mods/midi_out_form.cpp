// SPDX-License-Identifier: MIT
#include "ui/mods/midi_out_form.h"

#include <QAbstractItemView>

#include "midi/midi_notes.h"
#include "ui/widgets/binding.h"
#include "ui_midi_out_form.h"

namespace quavix {

MIDIOutForm::MIDIOutForm(ModFields& mods, MidiOutput& midi, EventBoundary& handlers, QWidget* owner)
    : ModWindow(midi.Fields.MIDIOutFormVisible, mods.UseMIDIOut.Ticked, handlers, owner),
      ui_(std::make_unique<Ui::MIDIOutForm>()) {
    ui_->setupUi(this);
    ui_->cmbMIDIOutDevice->Bind(
        midi.Fields.MIDIOutDevices, midi.Fields.cmbMIDIOutDevice, handlers, [&midi] { midi.FindDevices(); },
        [&midi](std::int32_t entry) { midi.cmbMIDIOutDevice_Click(entry); });
    BindChannelAndInstrument(midi, handlers);
    ShowIn(ui_->lblInfoText, midi.Fields.lblInfoText, [label = ui_->lblInfoText](const std::string& text) {
        ShowReading(label, tr("State"), QString::fromStdString(text));
        label->repaint();  // at once, because the announced action follows and may take a while
    });
    resize(sizeHint());
}

MIDIOutForm::~MIDIOutForm() = default;

void MIDIOutForm::BindChannelAndInstrument(MidiOutput& midi, EventBoundary& handlers) {
    for (std::int32_t channel = 1; channel <= MidiOutput::Channels; ++channel)
        ui_->cmbChannel->addItem(QString::number(channel));
    for (std::int32_t instrument = 0; !MIDIInstrumentName(instrument).empty(); ++instrument)
        ui_->cmbInstrument->addItem(QString::fromStdString(MIDIInstrumentListText(instrument)));
    const auto bind = [&](QComboBox* combo, const Watched<std::int32_t>& chosen,
                          void (MidiOutput::*click)(std::int32_t)) {
        combo->view()->setAccessibleName(combo->accessibleName());
        ShowIn(combo, chosen, [combo](std::int32_t entry) { combo->setCurrentIndex(entry); });
        connect(combo, &QComboBox::activated, this, [&midi, combo, click, &handlers](int entry) {
            RunHandler(*combo, "Click", handlers, [&] { (midi.*click)(entry); });
        });
    };
    bind(ui_->cmbChannel, midi.Fields.cmbChannel, &MidiOutput::cmbChannel_Click);
    bind(ui_->cmbInstrument, midi.Fields.cmbInstrument, &MidiOutput::cmbInstrument_Click);
}

}  // namespace quavix
