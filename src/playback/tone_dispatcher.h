// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "midi/midi_output.h"
#include "music/main_fields.h"
#include "music/tone.h"
#include "playback/tone_code.h"
#include "ports/message_boxes.h"
#include "ports/speaker.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// The outputs of ToneDispatcher, and MIDI, which receives every tone in addition.
struct ToneOutputs {
    Speaker& PcSpeaker;
    ToneOutput& Motor;
    ToneOutput& Generator;
    MidiOutput& Midi;
    ToneOutput& Glide;
};

/// The dispatcher of all tones: chooses the output of each tone by the current switches, in this order:
/// motor, sound-card generator, silence (muted), portamento, PC speaker. Sends the MIDI note-on and note-off
/// around the tone if MIDI output is on, and writes the tone code first.
class ToneDispatcher final : public ToneOutput {
  public:
    ToneDispatcher(const ModFields& mods, OutputOptions& output, ToneOutputs outputs, ToneCode& toneCode,
                   Waiting& waiting, MessageBoxes& boxes, DebugLog& log);

    /// A tone without a text sounds as "C4". A text that names no note shows a warning and sounds 0 Hz.
    void Sound(const Tone& tone) override;

    /// Sounds a note string or a frequency. An empty `noteString` is changed to "C4".
    void UniBeep(std::string& noteString, double durationMs, const ToneOptions& options = {});

    /// Handles the click on "Mute PC speaker", which affects the next tone.
    void MuteTweebleCheck_Click();

    /// Returns true while a tone sounds, for handlers that run during it.
    bool IsSounding() const { return sounding_; }

  private:
    void SoundOnOneOutput(const Tone& tone);
    void WaitInstead(const Tone& tone);
    void SoundOnSpeaker(const Tone& tone);

    const ModFields& mods_;
    OutputOptions& output_;
    ToneOutputs outputs_;
    ToneCode& toneCode_;
    Waiting& waiting_;
    MessageBoxes& boxes_;
    DebugLog& log_;
    bool sounding_ = false;
};

}  // namespace quavix
