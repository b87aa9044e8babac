// SPDX-License-Identifier: MIT
#include "ui/main_window/playback_panel.h"

#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_playback_panel.h"

namespace quavix {

PlaybackPanel::PlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                             QWidget* parent)
    : QWidget(parent), playback_(playback), handlers_(handlers), ui_(std::make_unique<Ui::PlaybackPanel>()) {
    ui_->setupUi(this);

    QSizePolicy keepsItsPlace = ui_->BeepTextLabel->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    ui_->BeepTextLabel->setSizePolicy(keepsItsPlace);
    PaintLabel(ui_->BeepTextLabel, colour::Orange);

    BindEnabled(ui_->PlayAllButton, view.PlayAllButtonEnabled);
    BindEnabled(ui_->PlayFromLineButton, view.PlayFromLineButtonEnabled);
    ShowIn(this, view.StopPlayButtonEnabled, [this](bool enabled) { EnableStopButton(enabled); });
    ShowIn(this, view.BeepTextLabelVisible, [this](bool visible) { ShowBeep(visible); });

    BindPlayButton(ui_->PlayAllButton, [this] { playback_.PlayAllButton_Click(); });
    BindPlayButton(ui_->PlayFromLineButton, [this] { playback_.PlayFromLineButton_Click(); });
    BindButton(ui_->StopPlayButton, handlers_, [this] { playback_.StopPlayButton_Click(); });
}

PlaybackPanel::~PlaybackPanel() = default;

void PlaybackPanel::BindPlayButton(QAbstractButton* button, std::function<void()> play) {
    connect(button, &QAbstractButton::clicked, this, [this, button, play = std::move(play)] {
        focusAfterStop_ = window()->focusWidget() == button ? button : nullptr;
        RunHandler(*button, "Click", handlers_, play);
    });
}

/// Moves the keyboard focus to the stop button while a play button is disabled, and back.
void PlaybackPanel::EnableStopButton(bool enabled) {
    const bool hasFocus = window()->focusWidget() == ui_->StopPlayButton;
    if (!enabled && hasFocus && focusAfterStop_ != nullptr)
        focusAfterStop_->setFocus();
    ui_->StopPlayButton->setEnabled(enabled);
    if (enabled && focusAfterStop_ != nullptr)
        ui_->StopPlayButton->setFocus();
}

/// Paints the label at once, because the speaker then holds the thread.
void PlaybackPanel::ShowBeep(bool visible) {
    ui_->BeepTextLabel->setVisible(visible);
    if (visible)
        ui_->BeepTextLabel->repaint();
}

}  // namespace quavix
