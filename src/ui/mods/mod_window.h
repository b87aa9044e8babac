// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// The window of a mod. It exists until the program ends, and is only shown and hidden. Closing it unticks
/// the mod's check box on the main window, which hides it.
class ModWindow : public QDialog {
    Q_OBJECT

  public:
    /// Closing the window sets `check` to false, which must outlive its use.
    ModWindow(Watched<bool>& check, EventBoundary& handlers, QWidget* owner)
        : QDialog(owner), check_(check), handlers_(handlers) {}

    /// Handles Escape like closing.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Watched<bool>& check_;
    EventBoundary& handlers_;
};

}  // namespace quavix
