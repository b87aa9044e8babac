// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/mixer.h"

namespace quavix::sound_engine {

/// Blocks of the mixer's length, in the pieces that a device asks for, and some of them ahead.
///
/// Thread: the one that mixes, once it is made. Nothing here allocates, locks or waits.
class BlockQueue {
  public:
    /// `aheadFrames` of silence come first, and after each piece of up to `mostFrames` at least so many wait.
    BlockQueue(std::shared_ptr<Mixer> mixer, std::size_t aheadFrames, std::size_t mostFrames);

    /// Fills `out`, of any length, with what comes next.
    void Take(std::span<float> out);

  private:
    void TakePiece(std::span<float> out);
    void PutBlock();

    std::shared_ptr<Mixer> mixer_;
    std::size_t ahead_;
    std::size_t mostFrames_;
    std::vector<float> block_;
    // A ring; `waiting_` frames from `first_` on.
    std::vector<float> ring_;
    std::size_t first_ = 0;
    std::size_t waiting_;
};

}  // namespace quavix::sound_engine
