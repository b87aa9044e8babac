// SPDX-License-Identifier: MIT
#include "modules/sound_engine/block_queue.h"

#include <algorithm>
#include <utility>

namespace quavix::sound_engine {

BlockQueue::BlockQueue(std::shared_ptr<Mixer> mixer, std::size_t aheadFrames, std::size_t mostFrames)
    : mixer_(std::move(mixer)),
      ahead_(aheadFrames),
      mostFrames_(mostFrames),
      block_(mixer_->BlockFrames()),
      ring_(aheadFrames + mostFrames + block_.size()),
      waiting_(aheadFrames) {}

void BlockQueue::Take(std::span<float> out) {
    while (!out.empty()) {
        const std::size_t frames = std::min(out.size(), mostFrames_);
        TakePiece(out.first(frames));
        out = out.subspan(frames);
    }
}

void BlockQueue::TakePiece(std::span<float> out) {
    while (waiting_ < ahead_ + out.size())
        PutBlock();
    const std::size_t straight = std::min(out.size(), ring_.size() - first_);
    std::copy_n(ring_.data() + first_, straight, out.begin());
    std::copy_n(ring_.data(), out.size() - straight, out.begin() + static_cast<std::ptrdiff_t>(straight));
    first_ = (first_ + out.size()) % ring_.size();
    waiting_ -= out.size();
}

void BlockQueue::PutBlock() {
    if (!mixer_->MixBlock(block_))
        std::fill(block_.begin(), block_.end(), 0.0F);
    const std::size_t start = (first_ + waiting_) % ring_.size();
    const std::size_t straight = std::min(block_.size(), ring_.size() - start);
    std::copy_n(block_.begin(), straight, ring_.data() + start);
    std::copy(block_.begin() + static_cast<std::ptrdiff_t>(straight), block_.end(), ring_.data());
    waiting_ += block_.size();
}

}  // namespace quavix::sound_engine
