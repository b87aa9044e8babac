// SPDX-License-Identifier: MIT
#include "ui/mods/midi_file_form.h"

#include <QFile>
#include <QSignalBlocker>

#include "ui/mods/held_notes_panel.h"
#include "ui/widgets/binding.h"
#include "ui_midi_file_form.h"

namespace quavix {

MIDIFileForm::MIDIFileForm(ModFields& mods, MidiFilePlayback& midiFile, EventBoundary& handlers,
                           QWidget* owner)
    : ModWindow(midiFile.MIDIFileFormVisible, mods.UseMIDIFile.Ticked, handlers, owner),
      playback_(midiFile),
      handlers_(handlers),
      ui_(std::make_unique<Ui::MIDIFileForm>()) {
    ui_->setupUi(this);
    ShowIn(ui_->txtFile, playback_.txtFile, [edit = ui_->txtFile](const std::string& fileName) {
        edit->setText(QFile::decodeName(fileName.c_str()));
    });
    BindButton(ui_->cmdBrowse, handlers_, [this] { playback_.cmdBrowse_Click(); });
    BindEnabled(ui_->cmdBrowse, playback_.cmdBrowseEnabled);
    BindEnabled(ui_->frmPlayback, playback_.frmPlaybackEnabled);
    BindButton(ui_->cmdPlay, handlers_, [this] { playback_.cmdPlay_Click(); });
    BindButton(ui_->cmdStop, handlers_, [this] { playback_.cmdStop_Click(); });
    BindButton(ui_->cmdRewind, handlers_, [this] { playback_.cmdRewind_Click(); });
    BindCheck(ui_->chkLoop, playback_.chkLoop, handlers_);
    BindSlider();
    BindLabel(ui_->lblPosPercent, playback_.lblPosPercent);
    BindLabel(ui_->lblPosSecs, playback_.lblPosSecs);
    KeepWidthOf(ui_->lblPosPercent, "100.00%");
    KeepWidthOf(ui_->lblPosSecs, "000:00.00");
    BindLabel(ui_->lblInfoText, playback_.lblInfoText);
    ShowIn(ui_->frmInfoText, playback_.frmInfoTextVisible,
           [frame = ui_->frmInfoText](bool visible) { frame->setVisible(visible); });
    // Keeps the size of the window when the progress appears and disappears.
    QSizePolicy policy = ui_->frmInfoText->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->frmInfoText->setSizePolicy(policy);
    ui_->heldNotesLayout->addWidget(new HeldNotesPanel(
        playback_,
        tr("Try to make each cycle last 30 mS (with max alternating time capped to 15mS per note)"),
        handlers_, this));
    resize(sizeHint());
}

MIDIFileForm::~MIDIFileForm() = default;

/// Binds the slider, which follows playback; only the user's moves count as changes.
void MIDIFileForm::BindSlider() {
    constexpr int PagesPerRange = 20;
    QSlider* slider = ui_->sldPosition;
    slider->setRange(0, MidiFilePlayback::SliderHighest);
    slider->setPageStep(MidiFilePlayback::SliderHighest / PagesPerRange);
    ShowIn(slider, playback_.sldPosition, [slider](std::int32_t position) {
        const QSignalBlocker quiet(slider);
        slider->setValue(position);
    });
    connect(slider, &QSlider::valueChanged, this, [this, slider](int position) {
        RunHandler(*slider, "Change", handlers_, [&] { playback_.sldPosition_Change(position); });
    });
}

}  // namespace quavix
