// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace quavix {

inline constexpr std::int64_t NsPerMs = 1'000'000;
inline constexpr std::int64_t NsPerSecond = 1'000'000'000;

/// Returns the system's monotonic clock in ns. For any thread, and for a just forked process.
std::int64_t MonotonicNs();

/// Sleeps until the system's monotonic clock shows `deadlineNs`, despite signals; returns at once if it is
/// past.
void SleepUntil(std::int64_t deadlineNs);

/// The clock and the wait of a speaker. WaitUntil may answer the window system meanwhile, but must not run
/// code of the program; it must return at the deadline and not before.
struct ToneClock {
    std::function<std::int64_t()> Now = MonotonicNs;
    std::function<void(std::int64_t deadlineNs)> WaitUntil = SleepUntil;

    /// Returns the time `durationMs` milliseconds from now. Tones end at a time, so that their starting cost
    /// neither lengthens them nor adds up over a song.
    std::int64_t DeadlineAfter(std::int32_t durationMs) const { return Now() + durationMs * NsPerMs; }
};

}  // namespace quavix
