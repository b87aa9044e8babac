// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "sound_engine/noise.h"
#include "sound_engine/ramp.h"
#include "sound_engine/unit.h"
#include "sound_engine/wave.h"

namespace quavix::sound_engine {

/// A channel of this frequency plays an oscillator at its own rate.
inline constexpr double ReferenceFrequency = 48000.0;

/// The frequency of a channel when it begins to play.
inline constexpr double StartFrequency = 44100.0;

/// A square wave sounds at this part of its nominal rate.
inline constexpr double SquareRatePart = 0.5;

/// Makes a waveform (SoundWaveform) at a rate, and adds it to what it hears.
class Oscillator final : public Unit {
  public:
    /// The same `seed` gives the same noise.
    explicit Oscillator(unsigned int seed);

    void Sync(const MixRate& rate, double channelFrequency) override;
    bool Process(const float* in, std::span<float> out) override;
    bool IsSource() const override { return true; }

  private:
    // A waveform on its way, which can go on while the next one fades in.
    struct Voice {
        int Type = 0;
        Phase At = 0;
        Phase Step = 0;
    };

    void SetStep(Voice& voice) const;
    void WarmUp();
    void AddVoice(Voice& voice, float* out, std::size_t frames, Weight weight);

    Waves waves_;
    Noise noise_;
    // Samples that have begun to be made: Delay of them are only missing the edges to come.
    std::array<float, Waves::Tail> begun_{};
    Voice voice_;
    Voice before_;
    // Of the wave before, in frames.
    int fadeLeft_ = 0;
    int fadeFrames_ = 1;
    int wantedType_ = 0;
    double periodsPerFrame_ = 0.0;
    Ramp gain_{1.0F};
    bool fresh_ = true;
};

}  // namespace quavix::sound_engine
