// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/main_fields.h"
#include "playback/playback_engine.h"
#include "shell/event_boundary.h"

class QAbstractButton;

namespace quavix {

namespace Ui {
class PlaybackPanel;
}

/// The buttons that start and stop playback, and the lamp that is lit while a tone sounds.
class PlaybackPanel : public QWidget {
    Q_OBJECT

  public:
    explicit PlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                           QWidget* parent = nullptr);
    ~PlaybackPanel() override;

  private:
    void BindPlayButton(QAbstractButton* button, std::function<void()> play);
    void EnableStopButton(bool enabled);
    void ShowBeep(bool visible);

    PlaybackEngine& playback_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::PlaybackPanel> ui_;
    QAbstractButton* focusAfterStop_ = nullptr;
};

}  // namespace quavix
