// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>

#include "modules/sound_engine/plan.h"
#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {

/// Mixes block by block what the caller's side has planned.
///
/// Two sides: the caller's, one thread at a time, hands over plans and says that something was set; the
/// mixing side, one thread at a time, makes blocks. Neither ever waits for the other.
class Mixer {
  public:
    /// `blockFrames`: 1 or more.
    explicit Mixer(std::size_t blockFrames) : blockFrames_(blockFrames) {}
    /// When nobody mixes any more.
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    std::size_t BlockFrames() const { return blockFrames_; }

    /// Caller's side: the next block is mixed by this plan. Destroys those that are no longer needed.
    void Replace(std::unique_ptr<Plan> plan);

    /// Caller's side: the next block takes over what was set.
    void Touch() { changes_.fetch_add(1, std::memory_order_release); }

    /// Caller's side: destroys plans that are no longer needed.
    void Tidy();

    /// When nobody mixes: frames per second from now on.
    void SetRate(double framesPerSecond);

    /// Mixing side: makes a block of BlockFrames() samples. False: it is silence, and `block` holds anything.
    bool MixBlock(std::span<float> block);

  private:
    void TakeOver();

    std::size_t blockFrames_;
    std::atomic<unsigned int> changes_{0};
    // On its way from the caller's side to the mixing side, and back.
    std::atomic<Plan*> next_{nullptr};
    std::atomic<Plan*> retired_{nullptr};

    // The mixing side's own.
    std::unique_ptr<Plan> plan_;
    unsigned int seen_ = 0;
    MixRate rate_;
};

}  // namespace quavix::sound_engine
