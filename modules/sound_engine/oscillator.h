// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "modules/sound_engine/ramp.h"
#include "modules/sound_engine/unit.h"
#include "modules/sound_engine/wave.h"

namespace quavix::sound_engine {

/// Random values of -1..1 at their own rate, joined by straight lines. The same `seed` gives the same noise.
class Noise {
  public:
    explicit Noise(std::uint32_t seed);

    /// Sets the number of new values per sample: 0 to 1024.
    void SetStep(double valuesPerSample);

    /// Returns the next sample.
    float Next();

  private:
    float Draw();

    static constexpr std::uint64_t One = std::uint64_t{1} << 32;

    std::uint32_t state_;
    float from_;
    float to_;
    // Position between the last value and the next: 2^32 is the whole distance.
    std::uint64_t place_ = 0;
    std::uint64_t step_ = One;
};

/// On a channel of this frequency in Hz, an oscillator sounds at its own rate.
inline constexpr double ReferenceFrequency = 48000.0;

/// Initial frequency of a channel in Hz.
inline constexpr double StartFrequency = 44100.0;

/// A square wave sounds at this fraction of its nominal rate.
inline constexpr double SquareRatePart = 0.5;

/// Makes a waveform (SoundWaveform) at a rate, and adds it to its input.
class Oscillator final : public Unit {
  public:
    /// The same `seed` gives the same noise.
    explicit Oscillator(unsigned int seed);

    void Sync(const MixRate& rate, double channelFrequency) override;
    bool Process(const float* in, std::span<float> out) override;
    bool IsSource() const override { return true; }

  private:
    // A running waveform, which can go on while the next one fades in.
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
    // Unfinished samples: Delay of them only lack later edges.
    std::array<float, Waves::Tail> begun_{};
    Voice voice_;
    Voice before_;
    // Fade of the previous wave, in frames.
    int fadeLeft_ = 0;
    int fadeFrames_ = 1;
    int wantedType_ = 0;
    double periodsPerFrame_ = 0.0;
    Ramp gain_{1.0F};
    bool fresh_ = true;
};

}  // namespace quavix::sound_engine
