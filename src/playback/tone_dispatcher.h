// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/main_fields.h"
#include "playback/tone_code.h"
#include "ports/message_boxes.h"
#include "ports/speaker.h"
#include "ports/tone_outputs.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// What a tone can sound on.
struct ToneOutputs {
    Speaker& PcSpeaker;
    MotorOutput& Motor;
    ToneGenerator& Generator;
    MidiNotes& Midi;
    Portamento& Glide;
};

/// How a tone is to be made; the last three matter to the sound-card tone generator only.
struct ToneOptions {
    /// The note string is a frequency in hertz, written as a decimal number.
    bool NoteIsFrequency = false;
    /// Keep sounding after the duration.
    bool SpecificContinuous = false;
    /// Stop after the duration even where the generator is never silent otherwise.
    bool SpecificStop = false;
    /// Return before the duration is over.
    bool FMODNoWait = false;
};

/// Makes every tone of the program, on the one output that the switches choose at that moment.
class ToneDispatcher {
  public:
    ToneDispatcher(MainFields& fields, ToneOutputs outputs, ToneCode& toneCode, Waiting& waiting,
                   MessageBoxes& boxes, DebugLog& log);

    /// Sounds a note ("C4", "C#5") or a frequency for `duration` milliseconds, on the motor, the sound-card
    /// generator, nothing but time (muted), the portamento or the PC speaker, in this precedence; sends MIDI
    /// note-on and note-off around it where MIDI output is on; writes its tone code first. Returns when the
    /// tone has ended, except where an output is told not to wait. An empty note string becomes "C4", for the
    /// caller too. An unknown note name shows a warning and sounds 0 Hz. A duration or frequency outside 32
    /// bits raises Overflow.
    void UniBeep(std::string& noteString, double duration, const ToneOptions& options = {});

    /// The click on "Mute PC speaker"; the next tone obeys it.
    void MuteTweebleCheck_Click();

    /// Frequency of a note string in Hz, 0 (and a warning) where its name is unknown.
    double FrequencyOfNote(const std::string& noteString);

    /// True inside UniBeep(), as a handler that runs in a tone's wait finds it.
    bool IsSounding() const { return sounding_ > 0; }

  private:
    std::int32_t MidiNote(const std::string& noteString);
    void Sound(const std::string& noteString, double duration, const ToneOptions& options);

    MainFields& fields_;
    ToneOutputs outputs_;
    ToneCode& toneCode_;
    Waiting& waiting_;
    MessageBoxes& boxes_;
    DebugLog& log_;
    /// A click on a key in the middle of a tone sounds another one inside it.
    int sounding_ = 0;
};

}  // namespace quavix
