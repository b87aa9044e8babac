// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <span>

#include "dsp/square_wave.h"

namespace quavix {

/// Renders tones as samples for a running sound card.
///
/// One thread plays, another renders; neither waits for the other. Rendering allocates nothing.
class TonePlayer {
  public:
    /// `blockFrames` is the number of frames that the card requests at a time.
    TonePlayer(std::int32_t sampleRate, std::int32_t blockFrames, std::int64_t nowNs);

    /// Queues a tone of `durationMs` ms that starts at `startNs` on the monotonic clock. Returns false, and
    /// drops the tone, if too many are waiting because nothing renders. Thread: the playing one.
    bool Play(std::int32_t frequency, std::int32_t durationMs, std::int64_t startNs);

    /// Fills `out`, frames of `channels` equal samples each. A tone begins one block after its start, so that
    /// it need not wait for the next block, or directly after the tone before. A tone that would begin more
    /// than MostLagNs late is shortened by its delay, so that a card with a slow clock does not fall behind.
    /// Returns false if the card takes samples much faster than it can play, as a lost card does. Thread: the
    /// card's.
    bool Render(std::span<float> out, std::int32_t channels, std::int64_t nowNs);

    /// Returns the time of the card's last request; before the first, that of construction. Any thread.
    std::int64_t LastRenderNs() const { return lastRenderNs_.load(std::memory_order_relaxed); }

    /// Returns true once every queued tone has been rendered. Any thread.
    bool Idle() const {
        return taken_.load(std::memory_order_acquire) == queued_.load(std::memory_order_acquire) &&
               !sounding_.load(std::memory_order_acquire);
    }

    static constexpr float Gain = 0.25F;
    static constexpr std::int64_t MostLagNs = 30'000'000;

  private:
    struct Tone {
        std::int64_t StartNs = 0;
        std::int32_t Frequency = 0;
        SquareWave Wave{0, 1, 0};
    };

    void TakeNext(std::int64_t positionNs);
    void RenderMono(std::span<float> out, std::int64_t nowNs);
    bool RunsAway(std::int64_t frames, std::int64_t nowNs);
    std::int64_t FramesIn(std::int64_t ns) const;

    std::int32_t sampleRate_;
    std::int64_t latencyNs_;

    // A ring: the card's thread owns the slots from taken_ up to queued_, the playing thread those from
    // queued_ up to taken_ + size.
    std::array<Tone, 16> ring_;
    std::atomic<std::uint32_t> queued_{0};
    std::atomic<std::uint32_t> taken_{0};
    std::atomic<bool> sounding_{false};
    std::atomic<std::int64_t> lastRenderNs_;

    // Used by the card's thread only.
    std::optional<SquareWave> wave_;
    std::int64_t waitFrames_ = 0;
    std::int64_t windowStartNs_ = 0;
    std::int64_t windowFrames_ = 0;
};

}  // namespace quavix
