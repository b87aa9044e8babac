// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "dsp/band_limiting.h"

namespace quavix::sound_engine {

/// A phase: 2^64 is one period.
using Phase = std::uint64_t;

/// Volume of a wave: Start for the first sample, and Step more for each following one.
struct Weight {
    float Start = 1.0F;
    float Step = 0.0F;
};

/// The waveforms, band-limited, as functions of the phase. They begin at 0 with a fundamental in phase with a
/// sine; the falling saw is inverted. Jumps and corners get a correction that removes the wave's parts above
/// half the sample rate. The first object of the process computes the tables.
class Waves {
  public:
    /// Delay of the output in samples: the correction of an edge begins before the edge.
    static constexpr std::size_t Delay = BandLimitedStep::Before;
    /// Number of samples after the last input that an edge can reach.
    static constexpr std::size_t Tail = BandLimitedStep::Taps - 1;

    Waves();

    // Each function adds `frames` samples of a wave to `out`, which holds `frames` + Tail, from out[Delay]
    // on, and the corrections around its edges. Sample i has the phase `phase` + i * `step`. Edges are found
    // up to the phase after the last sample. `step` is at most half a period.
    static void AddSine(float* out, std::size_t frames, Phase phase, Phase step, Weight weight);
    void AddSquare(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddRisingSaw(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddTriangle(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;

  private:
    // Corrections of a jump by 1, and of a slope that increases by 1 per sample.
    const BandLimitedStep::Rows& jump_;
    const BandLimitedStep::Rows& corner_;
};

}  // namespace quavix::sound_engine
