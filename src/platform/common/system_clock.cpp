// SPDX-License-Identifier: MIT
#include "platform/common/system_clock.h"

#include <chrono>
#include <ctime>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

/// Returns the local time. For one thread only, because the C library shares one result.
std::tm LocalNow() {
    using WallClock = std::chrono::system_clock;
    // Exact, unlike std::time(), which may lag by milliseconds.
    const std::time_t now = WallClock::to_time_t(WallClock::now());
    return *std::localtime(&now);
}

}  // namespace

std::int64_t SystemClock::PerformanceCounter() {
    return MonotonicNs() / (NsPerSecond / PerformanceFrequency());
}

std::uint32_t SystemClock::TickCount() {
    return static_cast<std::uint32_t>(MonotonicNs() / NsPerMs);
}

TimeOfDay SystemClock::LocalTime() {
    const std::tm now = LocalNow();
    return {now.tm_hour, now.tm_min, now.tm_sec < 60 ? now.tm_sec : 59};
}

Date SystemClock::LocalDate() {
    const std::tm now = LocalNow();
    constexpr int YearZero = 1900;
    return {now.tm_year + YearZero, now.tm_mon + 1, now.tm_mday};
}

}  // namespace quavix
