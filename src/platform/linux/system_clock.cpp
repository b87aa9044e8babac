// SPDX-License-Identifier: MIT
#include "platform/linux/system_clock.h"

#include <ctime>

namespace quavix {
namespace {

timespec Monotonic() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now;
}

}  // namespace

std::int64_t SystemClock::PerformanceCounter() {
    constexpr std::int64_t NanosecondsPerCount = 100;
    const timespec now = Monotonic();
    return now.tv_sec * PerformanceFrequency() + now.tv_nsec / NanosecondsPerCount;
}

std::uint32_t SystemClock::TickCount() {
    constexpr std::int64_t NanosecondsPerMs = 1'000'000;
    const timespec now = Monotonic();
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / NanosecondsPerMs);
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
