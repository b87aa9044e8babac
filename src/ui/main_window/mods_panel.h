// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

#include "ui/main_window/window_parts.h"
#include "ui/mods/mod_texts.h"

class QGridLayout;

namespace quavix {

/// The check boxes of the mods, each with a button that explains it. What can't be used is disabled; the
/// explanations are there all the same.
class ModsPanel : public QGroupBox {
    Q_OBJECT

  public:
    explicit ModsPanel(const WindowParts& parts, QWidget* parent = nullptr);

  private:
    void AddMod(const text::Mod& mod);
    void AddMotorSettings();
    void ShowHelp(const text::Mod& mod);

    WindowParts parts_;
    QGridLayout* grid_;
};

}  // namespace quavix
