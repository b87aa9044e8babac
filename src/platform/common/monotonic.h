// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace quavix {

inline constexpr std::int64_t NsPerMs = 1'000'000;
inline constexpr std::int64_t NsPerSecond = 1'000'000'000;

/// Nanoseconds of the system's monotonic clock. Any thread, and a process just forked.
std::int64_t MonotonicNs();

/// Sleeps until the system's monotonic clock shows `deadlineNs`, through any signals; returns at once where
/// it is past.
void SleepUntil(std::int64_t deadlineNs);

/// How a speaker tells and passes time. WaitUntil may answer the window system meanwhile, as long as nothing
/// of the program can run by it; it must return at the deadline and not before.
struct ToneClock {
    std::function<std::int64_t()> Now = MonotonicNs;
    std::function<void(std::int64_t deadlineNs)> WaitUntil = SleepUntil;

    /// The moment `durationMs` milliseconds from now. Tones end at moments, so that what it takes to start
    /// one does not make it longer and does not add up over a song.
    std::int64_t DeadlineAfter(std::int32_t durationMs) const { return Now() + durationMs * NsPerMs; }
};

}  // namespace quavix
