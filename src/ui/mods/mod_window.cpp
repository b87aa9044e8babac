// SPDX-License-Identifier: MIT
#include "ui/mods/mod_window.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "ui/widgets/binding.h"

namespace quavix {

ModWindow::ModWindow(const Watched<bool>& visible, Watched<bool>& check, EventBoundary& handlers,
                     QWidget* owner)
    : QDialog(owner), check_(check), handlers_(handlers) {
    visible.Watch([guard = QPointer<QWidget>(this)](bool show) {
        if (!guard)
            return;
        guard->setVisible(show);
        if (show) {
            guard->raise();
            guard->activateWindow();
        }
    });
}

void ModWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void ModWindow::keyPressEvent(QKeyEvent* event) {
    if (!IsRepeatedEnter(*event))
        QDialog::keyPressEvent(event);
}

void ModWindow::reject() {
    RunHandler(*this, "Unload", handlers_, [this] { check_ = false; });
}

}  // namespace quavix
