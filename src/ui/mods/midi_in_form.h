// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "midi/midi_input.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class MIDIInForm;
}

/// The MIDI device for input, and the notes held on it.
class MIDIInForm : public ModWindow {
    Q_OBJECT

  public:
    explicit MIDIInForm(ModFields& mods, MidiInput& midi, EventBoundary& handlers, QWidget* owner = nullptr);
    ~MIDIInForm() override;

  private:
    std::unique_ptr<Ui::MIDIInForm> ui_;
};

}  // namespace quavix
