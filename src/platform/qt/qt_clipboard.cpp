// SPDX-License-Identifier: MIT
#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace quavix {

void QtClipboard::SetText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string QtClipboard::Text() {
    return QGuiApplication::clipboard()->text().toStdString();
}

}  // namespace quavix
