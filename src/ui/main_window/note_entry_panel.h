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

/// What a click on a key does, and what the lines that it adds look like.
class NoteEntryPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NoteEntryPanel(EntryOptions& entry, EventBoundary& handlers, QWidget* parent = nullptr);
    ~NoteEntryPanel() override;

  private:
    std::unique_ptr<Ui::NoteEntryPanel> ui_;
};

}  // namespace quavix
