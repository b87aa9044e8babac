// SPDX-License-Identifier: MIT
#include "modules/sound_engine/mixed_source.h"

#include <algorithm>
#include <utility>

namespace quavix::sound_engine {
namespace {

// Returns the part of the delay that the device does not cover; it is kept ahead of the device.
std::size_t FramesAhead(const Mixer& mixer, const StreamFormat& device, int delayFrames) {
    // A call waits up to a period or a block until it is mixed, half of that on average.
    const long waiting = (static_cast<long>(device.Period) + static_cast<long>(mixer.BlockFrames())) / 2;
    return static_cast<std::size_t>(std::max(0L, delayFrames - device.DelayFrames - waiting));
}

}  // namespace

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

// Puts as much of the delay as possible into the device, which keeps the sound going if this process is late.
StreamWish MixedSource::Wish(int delayFrames) {
    constexpr int Shortest = 64;
    constexpr int Longest = 512;
    constexpr int WantedPeriods = 16;
    const int period = std::clamp(delayFrames / WantedPeriods, Shortest, Longest);
    // One period less, because one period is being waited for.
    return {.Name = "Quavix",
            .Period = static_cast<unsigned int>(period),
            .Periods = static_cast<unsigned int>(std::max(2, delayFrames / period - 1))};
}

MixedSource::MixedSource(const std::shared_ptr<Mixer>& mixer, const StreamFormat& device, int delayFrames)
    : channels_(device.Channels),
      queue_(mixer, FramesAhead(*mixer, device, delayFrames), device.Period),
      mono_(device.Period) {
    mixer->SetRate(device.FramesPerSecond);
}

bool MixedSource::Fill(std::span<float> out) {
    while (!out.empty()) {
        const std::span<float> mono(mono_.data(), std::min(out.size() / channels_, mono_.size()));
        queue_.Take(mono);
        auto to = out.begin();
        for (const float sample : mono)
            to = std::fill_n(to, channels_, std::clamp(sample, -1.0F, 1.0F));
        out = out.subspan(mono.size() * channels_);
    }
    return true;
}

}  // namespace quavix::sound_engine
