// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "modules/sound_engine/ramp.h"
#include "modules/sound_engine/unit.h"
#include "modules/sound_engine/wave.h"

namespace quavix::sound_engine {

/// Random values of -1..1 at a rate of their own, joined by straight lines. The same `seed` gives the same
/// noise.
class Noise {
  public:
    explicit Noise(std::uint32_t seed);

    /// How many new values there are to a sample; 0 or more.
    void SetStep(double valuesPerSample);

    /// The next sample.
    float Next();

  private:
    float Draw();

    static constexpr std::uint64_t One = std::uint64_t{1} << 32;

    std::uint32_t state_;
    float from_;
    float to_;
    // From the value before to the next: 2^32 is the whole way.
    std::uint64_t place_ = 0;
    std::uint64_t step_ = One;
};

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
