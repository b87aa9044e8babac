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

/// The labels of the current position, and the option that stops their update during playback.
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
