// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class ListPanel;
}

/// The list of music.
class ListPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ListPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~ListPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::ListPanel> ui_;
};

}  // namespace quavix
