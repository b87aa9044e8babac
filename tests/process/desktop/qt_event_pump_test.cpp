// SPDX-License-Identifier: MIT
#include <chrono>
#include <unistd.h>

#include <QTimer>
#include <gtest/gtest.h>

#include "platform/common/system_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "shell/waiting.h"

namespace quavix {
namespace {

using Clocks = std::chrono::steady_clock;

double MsSince(Clocks::time_point start) {
    return std::chrono::duration<double, std::milli>(Clocks::now() - start).count();
}

/// A descriptor that a test makes readable.
struct Pipe {
    Pipe() { EXPECT_EQ(pipe(Ends), 0); }
    ~Pipe() {
        close(Ends[0]);
        close(Ends[1]);
    }
    void Signal() { EXPECT_EQ(write(Ends[1], "", 1), 1); }
    int Ends[2] = {};
};

TEST(QtEventPump, AWaitThatTimesOutHasLastedItsTime) {
    QtEventPump pump;
    for (const std::uint32_t timeout : {1u, 2u, 3u, 5u, 15u, 20u}) {
        std::uint32_t result = 0;
        auto start = Clocks::now();
        for (result = 0; result == 0; result = pump.WaitForInput({}, timeout))
            start = Clocks::now();  // the event loop had something to do with itself
        EXPECT_EQ(result, EventPump::WaitTimedOut);
        EXPECT_GE(MsSince(start), timeout);
    }
}

TEST(QtEventPump, AWaitOfZeroTimesOut) {
    QtEventPump pump;
    EXPECT_EQ(pump.WaitForInput({}, 0), EventPump::WaitTimedOut);
}

TEST(QtEventPump, InputEndsAWaitEarly) {
    QtEventPump pump;
    bool handled = false;
    QTimer::singleShot(5, [&] { handled = true; });
    while (!handled) {
        EXPECT_EQ(pump.WaitForInput({}, 60'000), 0u);
        pump.DoEvents();
    }
}

TEST(QtEventPump, ASignalledHandleEndsAWaitWithItsIndex) {
    QtEventPump pump;
    Pipe first, second;
    const WaitHandle handles[] = {first.Ends[0], second.Ends[0]};
    second.Signal();
    EXPECT_EQ(pump.WaitForInput(handles, EventPump::Forever), 1u);
    EXPECT_EQ(pump.WaitForInput(handles, 0), 1u);
}

TEST(QtEventPump, AHandleSignalledDuringAWaitEndsIt) {
    QtEventPump pump;
    Pipe pipe;
    const WaitHandle handles[] = {pipe.Ends[0]};
    QTimer::singleShot(5, [&] { pipe.Signal(); });
    std::uint32_t result = 1;
    while (result == 1)
        result = pump.WaitForInput(handles, EventPump::Forever);
    EXPECT_EQ(result, 0u);
}

TEST(QtEventPump, AHandlerMayWaitItself) {
    SystemClock clock;
    QtEventPump pump;
    Waiting wait(clock, pump);
    std::string order;
    QTimer::singleShot(2, [&] {
        EXPECT_EQ(wait.MsgWaitObj(10), 258);
        order += "inner ";
    });
    EXPECT_EQ(wait.MsgWaitObj(5), 258);
    order += "outer";
    EXPECT_EQ(order, "inner outer");
}

TEST(Waiting, RunsHandlersAndStillLastsItsWholeTime) {
    SystemClock clock;
    QtEventPump pump;
    Waiting wait(clock, pump);
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(2);
    const auto start = Clocks::now();
    EXPECT_EQ(wait.MsgWaitObj(30), 258);
    EXPECT_GE(MsSince(start), 29);  // the tick count it goes by has whole milliseconds
    EXPECT_GT(ticks, 0);
}

}  // namespace
}  // namespace quavix
