// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/mixer.h"
#include "sound_device/sound_stream.h"

namespace quavix::sound_engine {

/// Cuts the mixer's blocks into the pieces that a sound device asks for, the same sound on each channel, and
/// keeps some frames ahead.
///
/// Thread: the mixing thread, after construction. No function allocates, locks or waits.
class MixedSource {
  public:
    /// Returns the wish for a device with `delayFrames` from a call to the loudspeaker.
    static StreamWish Wish(int delayFrames);

    /// Begins with silence for the part of the delay that the device does not cover, and keeps as much ahead.
    /// Sets the mixer's rate to the device's. The mixer must not run yet.
    MixedSource(std::shared_ptr<Mixer> mixer, const StreamFormat& device, int delayFrames);
    MixedSource(const MixedSource&) = delete;
    MixedSource& operator=(const MixedSource&) = delete;

    /// Fills `out`, any number of frames.
    void Fill(std::span<float> out);

  private:
    void PutBlock();

    std::shared_ptr<Mixer> mixer_;
    std::size_t channels_;
    std::size_t period_;
    std::size_t ahead_;
    std::vector<float> block_;
    // A ring: `waiting_` frames, beginning at `first_`.
    std::vector<float> ring_;
    std::size_t first_ = 0;
    std::size_t waiting_;
};

}  // namespace quavix::sound_engine
