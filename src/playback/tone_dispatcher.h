// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/main_fields.h"
#include "playback/tone_code.h"
#include "ports/message_boxes.h"
#include "ports/speaker.h"
#include "ports/tone_outputs.h"
#include "ports/tones.h"
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

/// Makes every tone of the program, on the one output that the switches choose at that moment.
class ToneDispatcher : public Tones {
  public:
    ToneDispatcher(MainFields& fields, ToneOutputs outputs, ToneCode& toneCode, Waiting& waiting,
                   MessageBoxes& boxes, DebugLog& log);

    /// On the motor, the sound-card generator, nothing but time (muted), the portamento or the PC speaker, in
    /// this precedence; sends MIDI note-on and note-off around the tone where MIDI output is on; writes its
    /// tone code first.
    void UniBeep(std::string& noteString, double duration, const ToneOptions& options = {}) override;

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
