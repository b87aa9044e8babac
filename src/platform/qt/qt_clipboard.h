// SPDX-License-Identifier: MIT
#pragma once

#include <QClipboard>
#include <QGuiApplication>

#include "ports/clipboard.h"

namespace quavix {

/// The desktop's clipboard.
class QtClipboard : public Clipboard {
  public:
    void SetText(const std::string& text) override {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }
    std::string Text() override { return QGuiApplication::clipboard()->text().toStdString(); }
};

}  // namespace quavix
