// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quavix {

// The outputs beside the PC speaker that a tone can go to. All calls come from the user-interface thread.
// What can fail shows its own message and returns; nothing is thrown for a device's sake.

/// The motor whose whine plays notes.
class MotorOutput {
  public:
    virtual ~MotorOutput() = default;
    /// Runs the motor at the speed of `noteName` ("C1" to "F3", or "-") and returns when `durationMs` have
    /// passed; handlers run meanwhile. A name that is no motor note sends the speed 0.
    virtual void PlayNote(const std::string& noteName, double durationMs) = 0;
    /// Sends one command, where the motor is in use; returns at once.
    virtual void SendString(const std::string& text) = 0;
};

/// The tone generator on the sound card.
class ToneGenerator {
  public:
    virtual ~ToneGenerator() = default;
    /// Sounds `frequency` Hz for `durationMs`. `noStop` keeps it sounding afterwards; `noWait` returns at
    /// once, otherwise handlers run while it sounds.
    virtual void FMODBeep(double frequency, double durationMs, bool noStop, bool noWait) = 0;
    /// Silences the generator where it is in use, and stops the motor where that is.
    virtual void FMODBeepStop() = 0;
};

/// MIDI output of notes.
class MidiNotes {
  public:
    virtual ~MidiNotes() = default;
    /// MIDI note number of a note (0..11) in an octave: octave × 12 + note; not clamped to 0..127.
    virtual std::int32_t NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum) = 0;
    virtual void MIDINoteOn(std::int32_t midiNoteNum) = 0;
    /// A `channel` outside 0..15 stands for the currently selected one.
    virtual void MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel) = 0;
};

/// The PC speaker's glide from pitch to pitch.
class Portamento {
  public:
    virtual ~Portamento() = default;
    /// Sets the pitch to glide to, in Hz.
    virtual void SetWantedPitch(std::int32_t frequency) = 0;
    /// Starts the glide towards the wanted pitch, or starts it anew; returns at once.
    virtual void StartSound() = 0;
};

}  // namespace quavix
