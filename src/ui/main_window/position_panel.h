// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/main_fields.h"
#include "playback/position_display.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class PositionPanel;
}

/// The labels that show where the music is, and the option that stops them during playback.
class PositionPanel : public QWidget {
    Q_OBJECT

  public:
    explicit PositionPanel(PositionDisplay& position, EventBoundary& handlers, QWidget* parent = nullptr);
    ~PositionPanel() override;

  private:
    PositionDisplay& position_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::PositionPanel> ui_;
};

}  // namespace quavix
