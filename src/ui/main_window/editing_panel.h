// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/list_editing.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class EditingPanel;
}

/// The buttons that change the selected line.
class EditingPanel : public QWidget {
    Q_OBJECT

  public:
    explicit EditingPanel(ListEditing& editing, EventBoundary& handlers, QWidget* parent = nullptr);
    ~EditingPanel() override;

  private:
    ListEditing& editing_;
    std::unique_ptr<Ui::EditingPanel> ui_;
};

}  // namespace quavix
