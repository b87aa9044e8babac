// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// The window of a mod. It stays for as long as the program runs: it is only shown and hidden, and closing it
/// unticks the mod's check box on the main window, which is the switch.
class ModWindow : public QDialog {
    Q_OBJECT

  public:
    /// Is shown, in front, while `visible` is true. Closing it sets `check` to false. Both values must
    /// outlive its use.
    ModWindow(const Watched<bool>& visible, Watched<bool>& check, EventBoundary& handlers, QWidget* owner);

    /// What the Escape key does is the same as closing.
    void reject() override { Unload(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Unload();

    Watched<bool>& check_;
    EventBoundary& handlers_;
};

}  // namespace quavix
