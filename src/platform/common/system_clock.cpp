// SPDX-License-Identifier: MIT
#include "platform/common/system_clock.h"

#include <ctime>

#include "platform/common/monotonic.h"

namespace quavix {

std::int64_t SystemClock::PerformanceCounter() {
    return MonotonicNs() / (NsPerSecond / PerformanceFrequency());
}

std::uint32_t SystemClock::TickCount() {
    return static_cast<std::uint32_t>(MonotonicNs() / NsPerMs);
}

TimeOfDay SystemClock::LocalTime() {
    // Exact, unlike std::time(), which may lag by milliseconds.
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    return {local.tm_hour, local.tm_min, local.tm_sec < 60 ? local.tm_sec : 59};
}

Date SystemClock::LocalDate() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    constexpr int YearZero = 1900;
    return {local.tm_year + YearZero, local.tm_mon + 1, local.tm_mday};
}

}  // namespace quavix
