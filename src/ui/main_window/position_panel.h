// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class PositionPanel;
}

/// The labels that show where the music is, and the option that stops them during playback.
class PositionPanel : public QWidget {
    Q_OBJECT

  public:
    explicit PositionPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~PositionPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::PositionPanel> ui_;
};

}  // namespace quavix
