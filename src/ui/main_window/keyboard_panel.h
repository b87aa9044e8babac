// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QPointer>
#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class KeyboardPanel;
}

/// The piano, the octaves above its coloured groups, and the field that moves them.
class KeyboardPanel : public QWidget {
    Q_OBJECT

  public:
    explicit KeyboardPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~KeyboardPanel() override;

  private:
    void ShowSounding();
    void EnableKeys(bool enabled);
    void StepOctave(int key, int direction);

    WindowParts parts_;
    std::unique_ptr<Ui::KeyboardPanel> ui_;
    bool hadFocus_ = false;
    QPointer<QWidget> focusMeanwhile_;
};

}  // namespace quavix
