// SPDX-License-Identifier: MIT
#include "modules/sound_engine/mixed_source.h"

#include <algorithm>

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
