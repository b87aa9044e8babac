// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/block_queue.h"
#include "modules/sound_engine/mixer.h"
#include "sound_device/sound_stream.h"

namespace quavix::sound_engine {

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
