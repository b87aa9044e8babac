// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "fmod/fmod_tone_generator.h"
#include "midi/using_form.h"
#include "music/main_fields.h"
#include "music/tone.h"

namespace quavix {

/// Plays any number of notes on an output for single tones: a short pulse of each held note in turn, from the
/// lowest to the highest, repeated. All forms share the position in the cycle.
class HeldNoteCycler {
  public:
    HeldNoteCycler(SongFields& song, PlaybackView& view, ToneOutput& tones, FmodToneGenerator& generator)
        : song_(song), view_(view), tones_(tones), generator_(generator) {}

    /// Does one step: shows the held notes and sounds the next one for the alternate time. If the form's
    /// AutoTimeCheck is ticked, first sets that time by the number of held notes. Without a held note,
    /// silences the tone generator. Handlers may run during the tone.
    void PlayLiveMIDIInput(UsingForm& usingForm);

  private:
    void SetAlternateTime(std::int32_t count);
    void Pulse(UsingForm& usingForm, std::int32_t note);

    SongFields& song_;
    PlaybackView& view_;
    ToneOutput& tones_;
    FmodToneGenerator& generator_;
    std::int16_t cycleIndex_ = 0;
};

}  // namespace quavix
