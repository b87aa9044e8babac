// SPDX-License-Identifier: MIT
#include "ui/mods/mod_window.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "ui/widgets/binding.h"

namespace quavix {

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
