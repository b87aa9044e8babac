// SPDX-License-Identifier: MIT
#include "ui/main_window/timing_panel.h"

#include "ui/mods/mod_texts.h"
#include "ui/widgets/binding.h"
#include "ui_timing_panel.h"

namespace quavix {

TimingPanel::TimingPanel(SongFields& song, Metronome& metronome, EventBoundary& handlers, QWidget* parent)
    : QGroupBox(parent),
      song_(song),
      metronome_(metronome),
      handlers_(handlers),
      ui_(std::make_unique<Ui::TimingPanel>()) {
    ui_->setupUi(this);
    ui_->BPMUpDown->SetBuddy(ui_->BPMText, tr("BPM"));
    ui_->MetronomeButton->setText(text::MetronomeCaption);
    ui_->MetronomeButton->setAccessibleName(text::MetronomeCaption);
    ui_->MetronomeButton->setToolTip(text::MetronomeTip);
    ui_->BPMText->setMinimumWidth(ui_->BPMText->fontMetrics().horizontalAdvance("000000"));
    KeepWidthOf(ui_->lblTimeSig, "100%");
    KeepWidthOf(ui_->NoteSilenceRatioLabel, "100%");

    BindText(ui_->BPMText, song.BPM, handlers);
    connect(ui_->BPMUpDown, &UpDown::Stepped, this, [this](int direction) {
        RunHandler(*ui_->BPMUpDown, "Change", handlers_, [&] { song_.BPM.Step(direction); });
    });
    ShowIn(ui_->MetronomeButton, metronome.MetronomeIsOn,
           [button = ui_->MetronomeButton](bool on) { button->setChecked(on); });
    BindEnabled(ui_->MetronomeButton, metronome.MetronomeButtonEnabled);
    BindButton(ui_->MetronomeButton, handlers, [this] {
        // The button shows the metronome's state, not the click.
        ui_->MetronomeButton->setChecked(metronome_.MetronomeIsOn);
        metronome_.MetronomeButton_Click();
    });
    // Assistive technology toggles the button without a click. This runs later, after any click has set the
    // button.
    const auto followToggle = [this] {
        if (ui_->MetronomeButton->isChecked() != metronome_.MetronomeIsOn)
            ui_->MetronomeButton->click();
    };
    connect(ui_->MetronomeButton, &QAbstractButton::toggled, this, followToggle, Qt::QueuedConnection);
    BindSlider(ui_->TimeSigSlider, song.BeatsPerBar, "Change", handlers);
    BindLabel(ui_->lblTimeSig, song.BeatsPerBar);
    BindSlider(ui_->NoteSilenceRatioSlider, song.NoteSilenceRatio, "Scroll", handlers);
    BindLabel(ui_->NoteSilenceRatioLabel, song.NoteSilenceRatio);
    BindText(ui_->AlternateTimeText, song.AlternateTime, handlers);
}

TimingPanel::~TimingPanel() = default;

}  // namespace quavix
