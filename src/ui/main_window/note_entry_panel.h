// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/main_fields.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class NoteEntryPanel;
}

/// The effect of a click on a key, and the form of added lines.
class NoteEntryPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NoteEntryPanel(EntryOptions& entry, EventBoundary& handlers, QWidget* parent = nullptr);
    ~NoteEntryPanel() override;

  private:
    std::unique_ptr<Ui::NoteEntryPanel> ui_;
};

}  // namespace quavix
