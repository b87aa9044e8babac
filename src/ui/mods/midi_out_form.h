// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/main_window/window_parts.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class MIDIOutForm;
}

/// Which MIDI device the tones go to, and on which channel and instrument they sound there.
class MIDIOutForm : public ModWindow {
    Q_OBJECT

  public:
    explicit MIDIOutForm(const WindowParts& parts, QWidget* owner = nullptr);
    ~MIDIOutForm() override;

  private:
    void BindChannelAndInstrument(const WindowParts& parts);

    std::unique_ptr<Ui::MIDIOutForm> ui_;
};

}  // namespace quavix
