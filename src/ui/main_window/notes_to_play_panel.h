// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/main_fields.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class NotesToPlayPanel;
}

/// The choice of the notes that sound when a line is clicked and when the music plays.
class NotesToPlayPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NotesToPlayPanel(SongFields& song, EventBoundary& handlers, QWidget* parent = nullptr);
    ~NotesToPlayPanel() override;

  private:
    EventBoundary& handlers_;
    std::unique_ptr<Ui::NotesToPlayPanel> ui_;
};

}  // namespace quavix
