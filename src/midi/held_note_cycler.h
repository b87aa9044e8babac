// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "fmod/fmod_tone_generator.h"
#include "midi/using_form.h"
#include "music/main_fields.h"
#include "music/tone.h"

namespace quavix {

/// Plays any number of notes on an output that sounds one at a time: a brief pulse of each held note in turn,
/// from the lowest to the highest and again. The place in the cycle is shared by all forms that use it.
class HeldNoteCycler {
  public:
    HeldNoteCycler(SongFields& song, PlaybackView& view, ToneOutput& tones, FmodToneGenerator& generator)
        : song_(song), view_(view), tones_(tones), generator_(generator) {}

    /// One step: shows the held notes and sounds the next one for the alternate time, which the form's
    /// AutoTimeCheck sets by their number first. Without a held note the tone generator is silenced. Handlers
    /// may run in the tone.
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
