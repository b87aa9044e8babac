// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace quavix::sound_engine {

/// Time base of the mixing.
struct MixRate {
    /// Frames per second.
    double FramesPerSecond = 48000.0;
    /// Length of a fade in frames: 2 ms.
    int RampFrames = 96;
};

/// One step of the mixing: makes or changes the samples of one signal.
///
/// Thread: the mixing thread, unless a class says otherwise. No function allocates, locks or waits.
class Processor {
  public:
    /// Most frames for one call of Process().
    static constexpr int MostFrames = 256;

    Processor() = default;
    virtual ~Processor() = default;
    Processor(const Processor&) = delete;
    Processor& operator=(const Processor&) = delete;

    /// Takes over new settings at the start of a block; not called for every block. `channelFrequency` is the
    /// frequency in Hz of the channel on which this sounds.
    virtual void Sync(const MixRate& rate, double channelFrequency) = 0;

    /// Fills `out` (1 to MostFrames samples) from as many samples at `in`; null is silence. Returns false if
    /// the result is silence; `out` is then undefined.
    virtual bool Process(const float* in, std::span<float> out) = 0;
};

}  // namespace quavix::sound_engine
