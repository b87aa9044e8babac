// SPDX-License-Identifier: MIT
#include "platform/common/speaker/tone_player.h"

#include <algorithm>

#include "platform/common/monotonic.h"

namespace quavix {

TonePlayer::TonePlayer(std::int32_t sampleRate, std::int32_t blockFrames, std::int64_t nowNs)
    : sampleRate_(sampleRate), latencyNs_(blockFrames * NsPerSecond / sampleRate), lastRenderNs_(nowNs) {}

bool TonePlayer::Play(std::int32_t frequency, std::int32_t durationMs, std::int64_t startNs) {
    const std::uint32_t queued = queued_.load(std::memory_order_relaxed);
    if (queued - taken_.load(std::memory_order_acquire) >= ring_.size())
        return false;
    const std::int64_t length = std::int64_t{durationMs} * sampleRate_ / 1000;
    ring_[queued % ring_.size()] = {startNs, frequency, SquareWave(frequency, sampleRate_, length)};
    queued_.store(queued + 1, std::memory_order_release);
    return true;
}

bool TonePlayer::Render(std::span<float> out, std::int32_t channels, std::int64_t nowNs) {
    const std::size_t frames = out.size() / static_cast<std::size_t>(channels);
    const std::span<float> mono = out.first(frames);
    RenderMono(mono, nowNs);
    if (channels > 1) {
        // From the back, so that no sample is overwritten before it is copied.
        for (std::size_t frame = frames; frame-- > 0;)
            std::fill_n(out.begin() + static_cast<std::ptrdiff_t>(frame * channels), channels, mono[frame]);
    }
    lastRenderNs_.store(nowNs, std::memory_order_relaxed);
    return !RunsAway(static_cast<std::int64_t>(frames), nowNs);
}

void TonePlayer::RenderMono(std::span<float> out, std::int64_t nowNs) {
    std::size_t done = 0;
    while (done < out.size()) {
        if (!wave_)
            TakeNext(nowNs + static_cast<std::int64_t>(done) * NsPerSecond / sampleRate_);
        std::span<float> rest = out.subspan(done);
        if (!wave_ || waitFrames_ > 0) {
            if (wave_)
                rest = rest.first(std::min(rest.size(), static_cast<std::size_t>(waitFrames_)));
            std::fill(rest.begin(), rest.end(), 0.0F);
            waitFrames_ -= wave_ ? static_cast<std::int64_t>(rest.size()) : 0;
        } else {
            rest = rest.first(std::min(rest.size(), static_cast<std::size_t>(wave_->Left())));
            wave_->Render(rest);
            for (float& sample : rest)
                sample *= Gain;
            if (wave_->Left() == 0) {
                wave_.reset();
                sounding_.store(false, std::memory_order_release);
            }
        }
        done += rest.size();
    }
}

void TonePlayer::TakeNext(std::int64_t positionNs) {
    const std::uint32_t taken = taken_.load(std::memory_order_relaxed);
    if (taken == queued_.load(std::memory_order_acquire))
        return;
    const Tone& next = ring_[taken % ring_.size()];
    const std::int64_t waitNs = next.StartNs + latencyNs_ - positionNs;
    waitFrames_ = std::max<std::int64_t>(FramesIn(waitNs), 0);
    wave_ = next.Wave;
    if (waitNs < -MostLagNs)
        wave_.emplace(next.Frequency, sampleRate_, next.Wave.Left() - FramesIn(-waitNs));
    sounding_.store(wave_->Left() > 0, std::memory_order_release);
    taken_.store(taken + 1, std::memory_order_release);
    if (wave_->Left() == 0)
        wave_.reset();
}

bool TonePlayer::RunsAway(std::int64_t frames, std::int64_t nowNs) {
    // A newly opened card may fill a buffer of one or two seconds at once.
    constexpr std::int64_t MostSecondsAhead = 4;
    if (nowNs - windowStartNs_ > NsPerSecond) {
        windowStartNs_ = nowNs;
        windowFrames_ = 0;
    }
    windowFrames_ += frames;
    return windowFrames_ > MostSecondsAhead * sampleRate_;
}

std::int64_t TonePlayer::FramesIn(std::int64_t ns) const {
    return ns / 1000 * sampleRate_ / 1'000'000;
}

}  // namespace quavix
