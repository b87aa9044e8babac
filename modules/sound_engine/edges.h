// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

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

}  // namespace quavix::sound_engine
