// SPDX-License-Identifier: MIT
#include "platform/common/system_clock.h"

#include <gtest/gtest.h>

namespace quavix {
namespace {

TEST(SystemClock, CountsTenMillionTimesASecondAndNeverBackwards) {
    SystemClock clock;
    EXPECT_EQ(clock.PerformanceFrequency(), 10'000'000);
    std::int64_t last = clock.PerformanceCounter();
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t now = clock.PerformanceCounter();
        EXPECT_GE(now, last);
        last = now;
    }
}

TEST(SystemClock, TickCountAndCounterTellTheSameTime) {
    SystemClock clock;
    const auto before = static_cast<std::uint32_t>(clock.PerformanceCounter() / 10'000);
    const std::uint32_t ticks = clock.TickCount();
    const auto after = static_cast<std::uint32_t>(clock.PerformanceCounter() / 10'000);
    EXPECT_LE(ticks - before, after - before);
}

TEST(SystemClock, LocalTimeIsATimeOfDay) {
    SystemClock clock;
    const TimeOfDay now = clock.LocalTime();
    EXPECT_TRUE(now.Hour >= 0 && now.Hour <= 23);
    EXPECT_TRUE(now.Minute >= 0 && now.Minute <= 59);
    EXPECT_TRUE(now.Second >= 0 && now.Second <= 59);
}

}  // namespace
}  // namespace quavix
