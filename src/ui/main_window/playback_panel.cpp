// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "playback/playback_engine.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_playback_panel.h"

namespace quavix {
namespace {

class PlaybackPanel : public QWidget {
  public:
    PlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers, QWidget* parent);

  private:
    void BindPlayButton(QAbstractButton* button, std::function<void()> play);
    void EnableStopButton(bool enabled);
    void ShowBeep(bool visible);

    EventBoundary& handlers_;
    Ui::PlaybackPanel ui_;
    QAbstractButton* focusAfterStop_ = nullptr;
};

PlaybackPanel::PlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                             QWidget* parent)
    : QWidget(parent), handlers_(handlers) {
    ui_.setupUi(this);

    QSizePolicy keepsItsPlace = ui_.BeepTextLabel->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    ui_.BeepTextLabel->setSizePolicy(keepsItsPlace);
    PaintLabel(ui_.BeepTextLabel, colour::Orange);

    BindEnabled(ui_.PlayAllButton, view.PlayAllButtonEnabled);
    BindEnabled(ui_.PlayFromLineButton, view.PlayFromLineButtonEnabled);
    ShowIn(this, view.StopPlayButtonEnabled, [this](bool enabled) { EnableStopButton(enabled); });
    ShowIn(this, view.BeepTextLabelVisible, [this](bool visible) { ShowBeep(visible); });

    BindPlayButton(ui_.PlayAllButton, [&playback] { playback.PlayAllButton_Click(); });
    BindPlayButton(ui_.PlayFromLineButton, [&playback] { playback.PlayFromLineButton_Click(); });
    BindButton(ui_.StopPlayButton, handlers_, [&playback] { playback.StopPlayButton_Click(); });
}

void PlaybackPanel::BindPlayButton(QAbstractButton* button, std::function<void()> play) {
    connect(button, &QAbstractButton::clicked, this, [this, button, play = std::move(play)] {
        focusAfterStop_ = window()->focusWidget() == button ? button : nullptr;
        RunHandler(*button, "Click", handlers_, play);
    });
}

/// Moves the keyboard focus to the stop button while a play button is disabled, and back.
void PlaybackPanel::EnableStopButton(bool enabled) {
    const bool hasFocus = window()->focusWidget() == ui_.StopPlayButton;
    if (!enabled && hasFocus && focusAfterStop_ != nullptr)
        focusAfterStop_->setFocus();
    ui_.StopPlayButton->setEnabled(enabled);
    if (enabled && focusAfterStop_ != nullptr)
        ui_.StopPlayButton->setFocus();
}

/// Paints the label at once, because the speaker then holds the thread.
void PlaybackPanel::ShowBeep(bool visible) {
    ui_.BeepTextLabel->setVisible(visible);
    if (visible)
        ui_.BeepTextLabel->repaint();
}

}  // namespace

QWidget* MakePlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                           QWidget* parent) {
    return new PlaybackPanel(view, playback, handlers, parent);
}

}  // namespace quavix
