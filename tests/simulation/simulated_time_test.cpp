// SPDX-License-Identifier: MIT
#include "simulation/simulated_time.h"

#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace quavix {
namespace {

constexpr auto Ms = SimulatedTime::CountsPerMs;

TEST(SimulatedTime, RunsTheEventsOfAMomentInTheirOrder) {
    SimulatedTime time;
    std::string heard;
    time.At(20, [&] { heard += "c"; });
    time.At(10, [&] { heard += "a"; });
    time.At(10, [&] { heard += "b"; });
    time.RunUntil(30);
    EXPECT_EQ(heard, "abc");
    EXPECT_EQ(time.Now(), 30 * Ms);
}

TEST(SimulatedTime, ABlockingCallRunsNothingUntilSomebodyWaits) {
    SimulatedTime time;
    std::int64_t handledAt = -1;
    time.At(10, [&] { handledAt = time.Now(); });
    time.Block(50);
    EXPECT_EQ(handledAt, -1);
    EXPECT_EQ(time.WaitForInput({}, 100), 0U) << "input is pending already";
    time.DoEvents();
    EXPECT_EQ(handledAt, 50 * Ms);
}

TEST(SimulatedTime, EventsDueWhileHandlersRunBelongToTheNextCall) {
    SimulatedTime time;
    int runs = 0;
    time.At(0, [&] {
        ++runs;
        time.Block(5);
        time.At(1, [&] { ++runs; });
    });
    time.DoEvents();
    EXPECT_EQ(runs, 1);
    time.DoEvents();
    EXPECT_EQ(runs, 2);
}

TEST(SimulatedTime, TimersTickUntilTheyAreStoppedAlsoByThemselves) {
    SimulatedTime time;
    std::string heard;
    Timers::Id own = 0;
    own = time.Start(10, [&] {
        heard += "a";
        if (heard.size() > 4)
            time.Stop(own);
    });
    const Timers::Id other = time.Start(25, [&] { heard += "b"; });
    time.At(60, [&] { time.Stop(other); });
    time.RunUntil(200);
    EXPECT_EQ(heard, "aabaab");
    time.Stop(12345);
}

TEST(SimulatedTime, MissedTicksAreSkipped) {
    SimulatedTime time;
    int ticks = 0;
    time.Start(10, [&] { ++ticks; });
    time.Block(95);
    time.DoEvents();
    EXPECT_EQ(ticks, 1);
    time.RunUntil(105);
    EXPECT_EQ(ticks, 2);
}

/// A timer that writes its ticks down as "ms ".
class TickingTimer : public testing::Test {
  protected:
    void Start(std::int32_t intervalMs) {
        Id = Time.Start(intervalMs, [this] {
            Heard += std::to_string(Time.Now() / Ms) + " ";
            if (OnTick)
                OnTick();
        });
    }

    SimulatedTime Time;
    Timers::Id Id = 0;
    std::string Heard;
    std::function<void()> OnTick;
};

TEST_F(TickingTimer, AnIntervalOfZeroBecomesTheShortestInterval) {
    Start(0);
    Time.RunUntil(3);
    EXPECT_EQ(Heard, "1 2 3 ");
    Time.SetInterval(Id, -5);
    Time.RunUntil(5);
    EXPECT_EQ(Heard, "1 2 3 4 5 ");
}

TEST_F(TickingTimer, ANewIntervalCountsFromWhenTheLastTickWasDue) {
    Start(10);
    Time.At(13, [this] { Time.SetInterval(Id, 5); });
    Time.At(26, [this] { Time.SetInterval(Id, 30); });
    Time.RunUntil(90);
    EXPECT_EQ(Heard, "10 15 20 25 55 85 ");
}

TEST_F(TickingTimer, ANewIntervalThatHasAlreadyPassedTicksAtOnce) {
    Start(1000);
    Time.At(50, [this] { Time.SetInterval(Id, 20); });
    Time.RunUntil(85);
    EXPECT_EQ(Heard, "50 60 80 ");
}

TEST_F(TickingTimer, ATickSetsTheNextIntervalWithoutDrift) {
    const int intervals[] = {15, 10, 8, 6, 5, 2};
    std::size_t at = 0;
    OnTick = [&] { Time.SetInterval(Id, intervals[++at % 6]); };
    Start(intervals[0]);
    Time.RunUntil(60);
    EXPECT_EQ(Heard, "15 25 33 39 44 46 ");
}

TEST_F(TickingTimer, SettingTheSameIntervalAgainDelaysNothing) {
    Start(10);
    for (int ms = 1; ms < 30; ms += 3)
        Time.At(ms, [this] { Time.SetInterval(Id, 10); });
    Time.RunUntil(30);
    EXPECT_EQ(Heard, "10 20 30 ");
}

TEST_F(TickingTimer, ATickWhileTheSameTimersTickWaitsComesOnceAfterwards) {
    OnTick = [this] {
        OnTick = nullptr;
        while (Time.Now() < 45 * Ms) {
            Time.WaitForInput({}, 5);
            Time.DoEvents();
        }
        Heard += "| ";
    };
    Start(10);
    Time.RunUntil(60);
    EXPECT_EQ(Heard, "10 | 45 50 60 ");
}

TEST(SimulatedTime, RepeatedReadingsOfTheClockAdvanceIt) {
    SimulatedTime time;
    const std::int64_t start = time.PerformanceCounter();
    for (int i = 0; i < 200'000; ++i)
        time.PerformanceCounter();
    EXPECT_GT(time.PerformanceCounter(), start);
}

TEST(SimulatedTime, AWaitThatCouldNeverEndIsAnError) {
    SimulatedTime time;
    EXPECT_THROW(time.WaitForInput({}, EventPump::Forever), std::logic_error);
}

TEST(SimulatedTime, TheTimeOfDayPassesMidnight) {
    SimulatedTime time({.Time = {23, 59, 58}});
    time.Block(3000);
    const TimeOfDay now = time.LocalTime();
    EXPECT_EQ(now.Hour, 0);
    EXPECT_EQ(now.Minute, 0);
    EXPECT_EQ(now.Second, 1);
}

}  // namespace
}  // namespace quavix
