// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace quavix::sound_engine {

/// What the mixing goes by.
struct MixRate {
    /// Frames per second.
    double FramesPerSecond = 48000.0;
    /// How long changes glide: 2 ms.
    int RampFrames = 96;
};

/// One step of the mixing: makes or changes the samples of one signal.
///
/// Thread: the mixing thread, except what else a class says. Nothing here allocates, locks or waits.
class Processor {
  public:
    /// Most frames for one call of Process().
    static constexpr int MostFrames = 256;

    Processor() = default;
    virtual ~Processor() = default;
    Processor(const Processor&) = delete;
    Processor& operator=(const Processor&) = delete;

    /// Takes over what was set since; at the start of a block, not necessarily of each. `channelFrequency` is
    /// that of the channel on which this sounds.
    virtual void Sync(const MixRate& rate, double channelFrequency) = 0;

    /// Fills `out` (1 to MostFrames) from as many samples at `in`; null is silence. False: the result is
    /// silence, and `out` holds anything.
    virtual bool Process(const float* in, std::span<float> out) = 0;
};

}  // namespace quavix::sound_engine
