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
    PlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers, QWidget* parent)
        : QWidget(parent) {
        ui_.setupUi(this);
        KeepPlaceWhenHidden(ui_.BeepTextLabel);
        PaintLabel(ui_.BeepTextLabel, colour::Orange);

        BindEnabled(ui_.PlayAllButton, view.PlayAllButtonEnabled);
        BindEnabled(ui_.PlayFromLineButton, view.PlayFromLineButtonEnabled);
        ShowIn(this, view.StopPlayButtonEnabled, [this](bool enabled) { EnableStopButton(enabled); });
        ShowIn(this, view.BeepTextLabelVisible, [this](bool visible) { ShowBeep(visible); });

        for (QAbstractButton* button : {ui_.PlayAllButton, ui_.PlayFromLineButton}) {
            connect(button, &QAbstractButton::clicked, this, [this, button] {
                focusAfterStop_ = window()->focusWidget() == button ? button : nullptr;
            });
        }
        BindButton(ui_.PlayAllButton, handlers, [&playback] { playback.PlayAllButton_Click(); });
        BindButton(ui_.PlayFromLineButton, handlers, [&playback] { playback.PlayFromLineButton_Click(); });
        BindButton(ui_.StopPlayButton, handlers, [&playback] { playback.StopPlayButton_Click(); });
    }

  private:
    /// Moves the keyboard focus to the stop button while a play button is disabled, and back.
    void EnableStopButton(bool enabled) {
        const bool hasFocus = window()->focusWidget() == ui_.StopPlayButton;
        if (!enabled && hasFocus && focusAfterStop_ != nullptr)
            focusAfterStop_->setFocus();
        ui_.StopPlayButton->setEnabled(enabled);
        if (enabled && focusAfterStop_ != nullptr)
            ui_.StopPlayButton->setFocus();
    }

    /// Paints the label at once, because the speaker then holds the thread.
    void ShowBeep(bool visible) {
        ui_.BeepTextLabel->setVisible(visible);
        if (visible)
            ui_.BeepTextLabel->repaint();
    }

    Ui::PlaybackPanel ui_;
    QAbstractButton* focusAfterStop_ = nullptr;
};

}  // namespace

QWidget* MakePlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                           QWidget* parent) {
    return new PlaybackPanel(view, playback, handlers, parent);
}

}  // namespace quavix
