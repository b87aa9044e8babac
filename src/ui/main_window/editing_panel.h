// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class EditingPanel;
}

/// The buttons that change the selected line.
class EditingPanel : public QWidget {
    Q_OBJECT

  public:
    explicit EditingPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~EditingPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::EditingPanel> ui_;
};

}  // namespace quavix
