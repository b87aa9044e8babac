// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class NotesToPlayPanel;
}

/// Which of a line's two notes sound when it is clicked and when the music is played.
class NotesToPlayPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NotesToPlayPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~NotesToPlayPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::NotesToPlayPanel> ui_;
};

}  // namespace quavix
