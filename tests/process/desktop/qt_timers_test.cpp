// SPDX-License-Identifier: MIT
#include "platform/qt/qt_timers.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quavix
