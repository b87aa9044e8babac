// SPDX-License-Identifier: MIT
#include "platform/qt/dialog_owner.h"

#include <QApplication>
#include <QWidget>

namespace quavix {
namespace {

bool StaysOpen(const QWidget& window) {
    return window.isVisible() && window.windowType() != Qt::Popup &&
           !window.testAttribute(Qt::WA_DeleteOnClose);
}

QWidget* WindowAbove(const QWidget& window) {
    const QWidget* parent = window.parentWidget();
    return parent == nullptr ? nullptr : parent->window();
}

}  // namespace

QWidget* DialogOwner() {
    QWidget* owner = QApplication::activeWindow();
    while (owner != nullptr && !StaysOpen(*owner))
        owner = WindowAbove(*owner);
    return owner;
}

QWidget* LastingDialogOwner() {
    QWidget* owner = DialogOwner();
    while (owner != nullptr && (owner->isModal() || !StaysOpen(*owner)))
        owner = WindowAbove(*owner);
    return owner;
}

}  // namespace quavix
