// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "dsp/band_limited_step.h"

namespace quavix::sound_engine {

/// What has to be added to a wave with jumps and corners so that nothing of it lies above half the sample
/// rate.
class Edges {
  public:
    /// Samples that one edge reaches, and how many of them come before the sample before the edge.
    static constexpr std::size_t Taps = BandLimitedStep::Taps;
    static constexpr std::size_t Before = BandLimitedStep::Before;

    /// The tables; computed at the first call, any thread.
    static const Edges& Tables();

    /// Adds what smoothes a jump by `height` that lies `place` (0..1) after a sample. `samples` are Taps of
    /// them, of which the one with the index Before is that sample.
    void AddJump(float* samples, double place, float height) const;

    /// The same for a corner, where the wave begins to rise by `slope` more per sample.
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

/// How much of a wave is heard: the first sample has Start, each following Step more.
struct Weight {
    float Start = 1.0F;
    float Step = 0.0F;
};

/// The waveforms, band-limited, as functions of the phase. All begin at 0 with what is in phase with a sine,
/// except the falling saw, which is upside down.
class Waves {
  public:
    /// How much later a wave comes out than it was put in: what smoothes an edge begins before the edge.
    static constexpr std::size_t Delay = Edges::Before;
    /// Samples behind the last one put in that an edge can reach.
    static constexpr std::size_t Tail = Edges::Taps - 1;

    // They add `frames` samples of a wave to `out`, which holds `frames` + Tail, from out[Delay] on, and what
    // smoothes its edges around them. Sample i has the phase `phase` + i * `step`; the phase moves on by
    // `step`, at most half a period, after the last one too.
    static void AddSine(float* out, std::size_t frames, Phase phase, Phase step, Weight weight);
    void AddSquare(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddRisingSaw(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;
    void AddTriangle(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const;

  private:
    const Edges& edges_ = Edges::Tables();
};

}  // namespace quavix::sound_engine
