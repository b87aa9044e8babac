// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "dsp/band_limiting.h"

namespace quavix::sound_engine {

/// Corrections for waves with jumps and corners: added to a wave, they remove its parts above half the sample
/// rate.
class Edges {
  public:
    /// Number of samples that one edge changes, and how many of them precede the last sample before the edge.
    static constexpr std::size_t Taps = BandLimitedStep::Taps;
    static constexpr std::size_t Before = BandLimitedStep::Before;

    /// Returns the tables. Computed at the first call, from any thread.
    static const Edges& Tables();

    /// Adds the correction for a jump by `height` that lies `place` (0..1) samples after samples[Before].
    /// `samples` has Taps elements.
    void AddJump(float* samples, double place, float height) const;

    /// Same for a corner, where the slope increases by `slope` per sample.
    void AddCorner(float* samples, double place, float slope) const;

  private:
    Edges();
    using Rows = std::array<BandLimitedStep::Row, BandLimitedStep::Phases + 1>;
    static void Add(const Rows& rows, float* samples, double place, float height);

    const Rows& jump_;
    Rows corner_;
};

/// A phase: 2^64 is one period.
using Phase = std::uint64_t;

/// Volume of a wave: Start for the first sample, and Step more for each following one.
struct Weight {
    float Start = 1.0F;
    float Step = 0.0F;
};

/// The waveforms, band-limited, as functions of the phase. They begin at 0 with a fundamental in phase with a
/// sine; the falling saw is inverted.
class Waves {
  public:
    /// Delay of the output in samples: the correction of an edge begins before the edge.
    static constexpr std::size_t Delay = Edges::Before;
    /// Number of samples behind the last input that an edge can reach.
    static constexpr std::size_t Tail = Edges::Taps - 1;

    // Each function adds `frames` samples of a wave to `out`, which holds `frames` + Tail, from out[Delay]
    // on, and the corrections around its edges. Sample i has the phase `phase` + i * `step`. Edges are found
    // up to the phase after the last sample. `step` is at most half a period.
    static void AddSine(float* out, std::size_t frames, Phase phase, Phase step, Weight weight);
    void AddSquare(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddRisingSaw(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddTriangle(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;

  private:
    const Edges& edges_ = Edges::Tables();
};

}  // namespace quavix::sound_engine
