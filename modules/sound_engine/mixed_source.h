// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/block_queue.h"
#include "modules/sound_engine/mixer.h"
#include "sound_device/sound_stream.h"

namespace quavix::sound_engine {

/// Gives a sound device what is mixed, the same on each of its channels.
class MixedSource final : public SampleSource {
  public:
    /// What to ask of a device, so that sound takes `delayFrames` from a call to the loudspeaker.
    static StreamWish Wish(int delayFrames);

    /// Nobody mixes yet. The device's rate becomes the mixer's.
    MixedSource(const std::shared_ptr<Mixer>& mixer, const StreamFormat& device, int delayFrames);

    bool Fill(std::span<float> out) override;

  private:
    std::size_t channels_;
    BlockQueue queue_;
    std::vector<float> mono_;
};

}  // namespace quavix::sound_engine
