// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "music/main_fields.h"
#include "ports/midi_devices.h"
#include "ports/tone_outputs.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// What MIDI output works with.
struct MidiOutputParts {
    MainFields& Fields;
    MidiOutPort& Device;
    Waiting& Wait;
    DebugLog& Log;
};

/// MIDI output: sends notes to the device of the user's choice.
class MidiOutput : public MidiNotes {
  public:
    explicit MidiOutput(const MidiOutputParts& parts) : p_(parts) {}
    MidiOutput(const MidiOutput&) = delete;
    MidiOutput& operator=(const MidiOutput&) = delete;

    std::int32_t NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum) override;

    /// Notes outside 0..127, which no MIDI message can hold, are logged and not sent.
    void MIDINoteOn(std::int32_t midiNoteNum) override;
    void MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel) override;

  private:
    void Send(std::int32_t status, std::int32_t data1, std::int32_t data2);

    MidiOutputParts p_;
    std::int32_t midiChannel_ = 0;
};

}  // namespace quavix
