// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

class QAbstractButton;

namespace quavix {

namespace Ui {
class PlaybackPanel;
}

/// The buttons that start and stop playback, and the lamp that is lit while a tone sounds.
class PlaybackPanel : public QWidget {
    Q_OBJECT

  public:
    explicit PlaybackPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~PlaybackPanel() override;

  private:
    void BindPlayButton(QAbstractButton* button, std::function<void()> play);
    void EnableStopButton(bool enabled);
    void ShowBeep(bool visible);

    WindowParts parts_;
    std::unique_ptr<Ui::PlaybackPanel> ui_;
    QAbstractButton* focusAfterStop_ = nullptr;
};

}  // namespace quavix
