// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/main_window/window_parts.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class MIDIInForm;
}

/// Which MIDI device the notes come from, and what is held on it.
class MIDIInForm : public ModWindow {
    Q_OBJECT

  public:
    explicit MIDIInForm(const WindowParts& parts, QWidget* owner = nullptr);
    ~MIDIInForm() override;

  private:
    std::unique_ptr<Ui::MIDIInForm> ui_;
};

}  // namespace quavix
