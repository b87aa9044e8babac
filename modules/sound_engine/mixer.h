// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>

#include "modules/sound_engine/plan.h"
#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {

/// Mixes the plan of the caller's side block by block.
///
/// There are two sides, one thread at a time each: the caller's side hands over plans and announces new
/// settings; the mixing side makes blocks. Neither ever waits for the other.
class Mixer {
  public:
    /// `blockFrames` is at least 1.
    explicit Mixer(std::size_t blockFrames) : blockFrames_(blockFrames) {}
    /// The mixing side must have ended.
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    std::size_t BlockFrames() const { return blockFrames_; }

    /// Caller's side: mixes the next block with this plan. Destroys plans that are no longer needed.
    void Replace(std::unique_ptr<Plan> plan);

    /// Caller's side: makes the next block take over new settings.
    void Touch() { changes_.fetch_add(1, std::memory_order_release); }

    /// Caller's side: destroys plans that are no longer needed.
    void Tidy();

    /// Sets the frames per second. The mixing side must not be running.
    void SetRate(double framesPerSecond);

    /// Mixing side: makes a block of BlockFrames() samples. False: it is silence, and `block` is undefined.
    bool MixBlock(std::span<float> block);

  private:
    void TakeOver();

    std::size_t blockFrames_;
    std::atomic<unsigned int> changes_{0};
    // Passed from the caller's side to the mixing side, and back.
    std::atomic<Plan*> next_{nullptr};
    std::atomic<Plan*> retired_{nullptr};

    // Used by the mixing side only.
    std::unique_ptr<Plan> plan_;
    unsigned int seen_ = 0;
    MixRate rate_;
};

}  // namespace quavix::sound_engine
