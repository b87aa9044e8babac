// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <atomic>

#include "modules/sound_engine/processor.h"
#include "modules/sound_engine/ramp.h"

namespace quavix::sound_engine {

/// The volume of a group, applied to everything in it.
///
/// Thread: the volume belongs to the caller's side.
class GroupStrip final : public Processor {
  public:
    void SetVolume(float volume) { volume_.store(volume, std::memory_order_relaxed); }

    void Sync(const MixRate& rate, double) override {
        gain_.To(volume_.load(std::memory_order_relaxed), rate.RampFrames);
        if (fresh_)
            gain_.Finish();
    }

    bool Process(const float* in, std::span<float> out) override {
        fresh_ = false;
        if (in == nullptr)
            gain_.Finish();
        if (in == nullptr || gain_.At(0.0F))
            return false;
        std::copy_n(in, out.size(), out.begin());
        gain_.Apply(out);
        return true;
    }

  private:
    std::atomic<float> volume_{1.0F};
    bool fresh_ = true;
    Ramp gain_{1.0F};
};

}  // namespace quavix::sound_engine
