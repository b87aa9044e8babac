// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "ports/event_pump.h"
#include "ports/midi_devices.h"

namespace quavix {

/// The MIDI devices of the module `fileName` (midiio32.ocx), which is loaded on first use.
class ModuleMidiDevices {
  public:
    /// `system` is "alsa" or "jack"; empty for the first one available. `watch` must outlive this.
    ModuleMidiDevices(std::string fileName, HandleWatch& watch, std::string system = {});
    ~ModuleMidiDevices();
    ModuleMidiDevices(const ModuleMidiDevices&) = delete;
    ModuleMidiDevices& operator=(const ModuleMidiDevices&) = delete;

    MidiOutPort& Out();
    MidiInPort& In();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace quavix
