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

/// The outputs between which ToneDispatcher chooses, and MIDI, which gets every tone besides.
struct ToneOutputs {
    Speaker& PcSpeaker;
    ToneOutput& Motor;
    ToneOutput& Generator;
    MidiOutput& Midi;
    ToneOutput& Glide;
};

/// The place that decides which output sounds: every tone of the program comes here, and goes to the motor,
/// the sound-card generator, nothing but time (muted), the portamento or the PC speaker, in this precedence,
/// as the switches stand at that moment. Sends the MIDI note-on and note-off around the tone where MIDI
/// output is on, and writes the tone code first.
class ToneDispatcher final : public ToneOutput {
  public:
    ToneDispatcher(const ModFields& mods, OutputOptions& output, ToneOutputs outputs, ToneCode& toneCode,
                   Waiting& waiting, MessageBoxes& boxes, DebugLog& log);

    /// A tone without a text is "C4". A text that names no note shows a warning and sounds 0 Hz.
    void Sound(const Tone& tone) override;

    /// Sounds a note string or a frequency. An empty one becomes "C4" for the caller too.
    void UniBeep(std::string& noteString, double durationMs, const ToneOptions& options = {});

    /// The click on "Mute PC speaker"; the next tone obeys it.
    void MuteTweebleCheck_Click();

    /// True while a tone sounds, for handlers that run in its wait.
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
