// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <atomic>
#include <span>

#include "modules/sound_engine/oscillator.h"
#include "modules/sound_engine/processor.h"
#include "modules/sound_engine/ramp.h"

namespace quavix::sound_engine {

/// The frequency, volume and pause of a channel.
///
/// Thread: Idle(), Sync() and Apply() belong to the mixing thread, the rest to the caller's side.
class ChannelStrip {
  public:
    explicit ChannelStrip(bool paused) : paused_(paused) {}

    void SetFrequency(float frequency) { frequency_.store(frequency, std::memory_order_relaxed); }
    float Frequency() const { return frequency_.load(std::memory_order_relaxed); }
    void SetVolume(float volume) { volume_.store(volume, std::memory_order_relaxed); }
    float Volume() const { return volume_.load(std::memory_order_relaxed); }
    void SetPaused(bool paused) { paused_.store(paused, std::memory_order_relaxed); }
    bool Paused() const { return paused_.load(std::memory_order_relaxed); }

    /// Takes over new settings, at the start of a block.
    void Sync(const MixRate& rate) {
        stands_ = Paused();
        gain_.To(stands_ ? 0.0F : Volume(), rate.RampFrames);
    }

    /// Returns true if paused and faded out: time stands still on the channel. Valid for a whole block.
    bool Idle() const { return stands_ && gain_.At(0.0F); }

    /// Applies fade and volume. Returns false if the result is silence; `samples` is then undefined.
    bool Apply(std::span<float> samples) {
        const bool heard = !gain_.At(0.0F);
        if (heard)
            gain_.Apply(samples);
        gone_.store(Idle(), std::memory_order_relaxed);
        return heard;
    }
    /// Same as Apply(), for silent samples.
    void ApplyToSilence() {
        gain_.Finish();
        gone_.store(Idle(), std::memory_order_relaxed);
    }

    /// Returns true if the channel was paused and faded out in the last block. Belongs to the caller's side.
    bool Gone() const { return gone_.load(std::memory_order_relaxed); }

  private:
    std::atomic<float> frequency_{static_cast<float>(StartFrequency)};
    std::atomic<float> volume_{1.0F};
    std::atomic<bool> paused_;
    std::atomic<bool> gone_{false};
    bool stands_ = true;
    Ramp gain_{0.0F};
};

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
