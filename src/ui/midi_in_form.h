// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/mod_window.h"
#include "ui/window_parts.h"

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
