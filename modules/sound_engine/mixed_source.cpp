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

MixedSource::MixedSource(std::shared_ptr<Mixer> mixer, const StreamFormat& device, int delayFrames)
    : mixer_(std::move(mixer)),
      channels_(device.Channels),
      period_(device.Period),
      ahead_(FramesAhead(*mixer_, device, delayFrames)),
      block_(mixer_->BlockFrames()),
      ring_(ahead_ + period_ + block_.size()),
      waiting_(ahead_) {
    mixer_->SetRate(device.FramesPerSecond);
}

void MixedSource::Fill(std::span<float> out) {
    for (auto to = out.begin(); to != out.end();) {
        const std::size_t missing = static_cast<std::size_t>(out.end() - to) / channels_;
        while (waiting_ < ahead_ + std::min(missing, period_))
            PutBlock();
        const std::size_t frames = std::min({missing, period_, ring_.size() - first_});
        for (const float sample : std::span(ring_).subspan(first_, frames))
            to = std::fill_n(to, channels_, std::clamp(sample, -1.0F, 1.0F));
        first_ = (first_ + frames) % ring_.size();
        waiting_ -= frames;
    }
}

void MixedSource::PutBlock() {
    if (!mixer_->MixBlock(block_))
        std::fill(block_.begin(), block_.end(), 0.0F);
    const std::size_t start = (first_ + waiting_) % ring_.size();
    const std::size_t straight = std::min(block_.size(), ring_.size() - start);
    std::copy_n(block_.begin(), straight, ring_.data() + start);
    std::copy(block_.begin() + static_cast<std::ptrdiff_t>(straight), block_.end(), ring_.data());
    waiting_ += block_.size();
}

}  // namespace quavix::sound_engine
