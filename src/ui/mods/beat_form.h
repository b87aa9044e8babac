// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/main_window/window_parts.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class BeatForm;
}

/// Which beats the beat sound is for.
class BeatForm : public ModWindow {
    Q_OBJECT

  public:
    explicit BeatForm(const WindowParts& parts, QWidget* parent = nullptr);
    ~BeatForm() override;

  private:
    std::unique_ptr<Ui::BeatForm> ui_;
};

}  // namespace quavix
