// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <gtest/gtest.h>

#include "platform/qt/qt_event_loop.h"

namespace quavix {
namespace {

void RunUntil(const bool& done) {
    while (!done)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(QtTimers, TickAgainAndAgainUntilTheyAreStoppedByTheirOwnTick) {
    QtTimers timers;
    int ticks = 0;
    bool done = false;
    Timers::Id id = 0;
    id = timers.Start(1, [&] {
        if (++ticks == 3) {
            timers.Stop(id);
            timers.Start(5, [&] { done = true; });
        }
    });
    EXPECT_NE(id, 0);
    EXPECT_EQ(ticks, 0);
    RunUntil(done);
    EXPECT_EQ(ticks, 3);
}

TEST(QtTimers, AStoppedTimerTicksNoMore) {
    QtTimers timers;
    bool ticked = false;
    bool done = false;
    const Timers::Id id = timers.Start(1, [&] { ticked = true; });
    timers.Stop(id);
    timers.Stop(id + 100);
    timers.Start(5, [&] { done = true; });
    RunUntil(done);
    EXPECT_FALSE(ticked);
}

TEST(QtTimers, ANewIntervalCountsFromTheLastTick) {
    QtTimers timers;
    bool quick = false;
    bool done = false;
    Timers::Id slow = 0;
    slow = timers.Start(3'600'000, [&] { quick = true; });
    timers.Start(5, [&] {
        if (quick)
            done = true;
        timers.SetInterval(slow, 1);
        timers.SetInterval(slow + 100, 1);
    });
    RunUntil(done);
    EXPECT_TRUE(quick) << "not in an hour";
}

TEST(QtTimers, ATickThatWaitsIsNotEnteredAgainAndTicksOnAfterwards) {
    QtTimers timers;
    int depth = 0;
    int ticks = 0;
    bool done = false;
    bool waited = false;
    timers.Start(1, [&] {
        EXPECT_EQ(++depth, 1);
        if (++ticks == 1) {
            timers.Start(20, [&] { waited = true; });
            RunUntil(waited);
            EXPECT_EQ(ticks, 1);
        }
        done = ticks == 3;
        --depth;
    });
    RunUntil(done);
    EXPECT_EQ(ticks, 3);
}

TEST(QtTimers, ATimerMayBeStoppedWhileItsTickWaits) {
    QtTimers timers;
    int ticks = 0;
    bool stopped = false;
    bool done = false;
    const Timers::Id id = timers.Start(1, [&] {
        ++ticks;
        RunUntil(stopped);
    });
    timers.Start(5, [&] {
        timers.Stop(id);
        stopped = true;
    });
    timers.Start(20, [&] { done = true; });
    RunUntil(done);
    EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace quavix
