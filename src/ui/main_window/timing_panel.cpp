// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "playback/metronome.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_timing_panel.h"

namespace quavix {

QWidget* MakeTimingPanel(SongFields& song, Metronome& metronome, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QGroupBox(parent);
    Ui::TimingPanel ui{};
    ui.setupUi(panel);
    ui.BPMUpDown->SetBuddy(ui.BPMText, QObject::tr("BPM"));
    QAbstractButton* const button = ui.MetronomeButton;
    ui.BPMText->setMinimumWidth(ui.BPMText->fontMetrics().horizontalAdvance("000000"));
    KeepWidthOf(ui.lblTimeSig, "100%");
    KeepWidthOf(ui.NoteSilenceRatioLabel, "100%");

    BindText(ui.BPMText, song.BPM, handlers);
    QObject::connect(ui.BPMUpDown, &UpDown::Stepped, panel,
                     [&song, &handlers, upDown = ui.BPMUpDown](int direction) {
                         RunHandler(*upDown, "Change", handlers, [&] { song.BPM.Step(direction); });
                     });
    ShowIn(button, metronome.MetronomeIsOn, [button](bool on) { button->setChecked(on); });
    BindEnabled(button, metronome.MetronomeButtonEnabled);
    BindButton(button, handlers, [&metronome, button] {
        // The button shows the metronome's state, not the click.
        button->setChecked(metronome.MetronomeIsOn);
        metronome.MetronomeButton_Click();
    });
    // Assistive technology toggles the button without a click. This runs later, after any click has set the
    // button.
    const auto followToggle = [&metronome, button] {
        if (button->isChecked() != metronome.MetronomeIsOn)
            button->click();
    };
    QObject::connect(button, &QAbstractButton::toggled, panel, followToggle, Qt::QueuedConnection);
    BindSlider(ui.TimeSigSlider, song.BeatsPerBar, "Change", handlers);
    BindLabel(ui.lblTimeSig, song.BeatsPerBar);
    BindSlider(ui.NoteSilenceRatioSlider, song.NoteSilenceRatio, "Scroll", handlers);
    BindLabel(ui.NoteSilenceRatioLabel, song.NoteSilenceRatio);
    BindText(ui.AlternateTimeText, song.AlternateTime, handlers);
    return panel;
}

}  // namespace quavix
