// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/mixer.h"
#include "sound_device/sound_stream.h"

namespace quavix::sound_engine {

/// Cuts the mixer's blocks into the pieces that a device asks for, and keeps some frames ahead.
///
/// Thread: the mixing thread, after construction. No function allocates, locks or waits.
class BlockQueue {
  public:
    /// Begins with `aheadFrames` of silence, and keeps as many ahead after each piece of up to `mostFrames`.
    BlockQueue(std::shared_ptr<Mixer> mixer, std::size_t aheadFrames, std::size_t mostFrames);

    /// Fills `out`, of any length, with the next frames.
    void Take(std::span<float> out);

  private:
    void TakePiece(std::span<float> out);
    void PutBlock();

    std::shared_ptr<Mixer> mixer_;
    std::size_t ahead_;
    std::size_t mostFrames_;
    std::vector<float> block_;
    // A ring: `waiting_` frames, beginning at `first_`.
    std::vector<float> ring_;
    std::size_t first_ = 0;
    std::size_t waiting_;
};

/// Gives a sound device the mixed sound, the same on each channel.
class MixedSource final : public SampleSource {
  public:
    /// Returns the wish for a device with `delayFrames` from a call to the loudspeaker.
    static StreamWish Wish(int delayFrames);

    /// Sets the mixer's rate to the device's. The mixer must not run yet.
    MixedSource(const std::shared_ptr<Mixer>& mixer, const StreamFormat& device, int delayFrames);

    bool Fill(std::span<float> out) override;

  private:
    std::size_t channels_;
    BlockQueue queue_;
    std::vector<float> mono_;
};

}  // namespace quavix::sound_engine
