// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "midi/midi_output.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class MIDIOutForm;
}

/// The MIDI device for output, with its channel and instrument.
class MIDIOutForm : public ModWindow {
    Q_OBJECT

  public:
    explicit MIDIOutForm(ModFields& mods, MidiOutput& midi, EventBoundary& handlers,
                         QWidget* owner = nullptr);
    ~MIDIOutForm() override;

  private:
    void BindChannelAndInstrument(MidiOutput& midi, EventBoundary& handlers);

    std::unique_ptr<Ui::MIDIOutForm> ui_;
};

}  // namespace quavix
