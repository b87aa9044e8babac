// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// A local time of day; Hour 0..23, Minute 0..59, Second 0..59.
struct TimeOfDay {
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

/// A day of the local calendar; Month 1..12, Day 1..31.
struct Date {
    int Year = 0;
    int Month = 0;
    int Day = 0;
};

/// The system's clocks. Outside src/platform, no other clock is used.
///
/// Thread: the user-interface thread. No call fails, blocks or runs handlers.
class Clock {
  public:
    virtual ~Clock() = default;

    /// Returns a high-resolution counter that never runs backwards. Divide by PerformanceFrequency() for
    /// seconds.
    virtual std::int64_t PerformanceCounter() = 0;

    /// Returns the counts per second, above 0 and constant for the life of the process.
    virtual std::int64_t PerformanceFrequency() = 0;

    /// Returns the milliseconds since the system started, wrapping to 0 after 2^32 ms (49.7 days).
    virtual std::uint32_t TickCount() = 0;

    /// Returns the wall clock's local time of day.
    virtual TimeOfDay LocalTime() = 0;

    /// Returns the wall clock's local day.
    virtual Date LocalDate() = 0;
};

}  // namespace quavix
