// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/main_window/window_parts.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class PortamentoForm;
}

/// How quickly the tweeble portamento glides, and how long it sounds.
class PortamentoForm : public ModWindow {
    Q_OBJECT

  public:
    explicit PortamentoForm(const WindowParts& parts, QWidget* parent = nullptr);
    ~PortamentoForm() override;

  private:
    std::unique_ptr<Ui::PortamentoForm> ui_;
};

}  // namespace quavix
