// SPDX-License-Identifier: MIT
#include <QFile>
#include <QSignalBlocker>

#include "midi/midi_file_playback.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_midi_file_form.h"

namespace quavix {
namespace {

/// Binds the slider, which follows playback; only the user's moves count as changes.
void BindPosition(QSlider* slider, MidiFilePlayback& playback, EventBoundary& handlers) {
    constexpr int PagesPerRange = 20;
    slider->setRange(0, MidiFilePlayback::SliderHighest);
    slider->setPageStep(MidiFilePlayback::SliderHighest / PagesPerRange);
    ShowIn(slider, playback.sldPosition, [slider](std::int32_t position) {
        const QSignalBlocker quiet(slider);
        slider->setValue(position);
    });
    QObject::connect(slider, &QSlider::valueChanged, slider, [&playback, &handlers, slider](int position) {
        RunHandler(*slider, "Change", handlers, [&] { playback.sldPosition_Change(position); });
    });
}

}  // namespace

void SetUpMIDIFileForm(ModWindow& form, MidiFilePlayback& playback, EventBoundary& handlers) {
    Ui::MIDIFileForm ui{};
    ui.setupUi(&form);
    ShowIn(ui.txtFile, playback.txtFile, [edit = ui.txtFile](const std::string& fileName) {
        edit->setText(QFile::decodeName(fileName.c_str()));
    });
    BindButton(ui.cmdBrowse, handlers, [&playback] { playback.cmdBrowse_Click(); });
    BindEnabled(ui.cmdBrowse, playback.cmdBrowseEnabled);
    BindEnabled(ui.frmPlayback, playback.frmPlaybackEnabled);
    BindButton(ui.cmdPlay, handlers, [&playback] { playback.cmdPlay_Click(); });
    BindButton(ui.cmdStop, handlers, [&playback] { playback.cmdStop_Click(); });
    BindButton(ui.cmdRewind, handlers, [&playback] { playback.cmdRewind_Click(); });
    BindCheck(ui.chkLoop, playback.chkLoop, handlers);
    BindPosition(ui.sldPosition, playback, handlers);
    BindLabel(ui.lblPosPercent, playback.lblPosPercent);
    BindLabel(ui.lblPosSecs, playback.lblPosSecs);
    KeepWidthOf(ui.lblPosPercent, "100.00%");
    KeepWidthOf(ui.lblPosSecs, "000:00.00");
    BindLabel(ui.lblInfoText, playback.lblInfoText);
    BindVisible(ui.frmInfoText, playback.frmInfoTextVisible);
    KeepPlaceWhenHidden(ui.frmInfoText);
    ui.heldNotesLayout->addWidget(MakeHeldNotesPanel(playback, 30, handlers, &form));
    form.resize(form.sizeHint());
}

}  // namespace quavix
