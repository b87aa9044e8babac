// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class NoteEntryPanel;
}

/// What a click on a key does, and what the lines that it adds look like.
class NoteEntryPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NoteEntryPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~NoteEntryPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::NoteEntryPanel> ui_;
};

}  // namespace quavix
