// SPDX-License-Identifier: MIT
#include "platform/common/termination_signals.h"

#include <csignal>

#include <gtest/gtest.h>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

std::int64_t NsFromNow(std::int64_t ns) {
    return MonotonicNs() + ns;
}

constexpr std::int64_t AnHour = 3'600'000'000'000;

TEST(TerminationSignals, EndASleepAtOnceAndStayKnown) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        TerminationSignals signals;
        std::raise(signal);
        EXPECT_TRUE(signals.SleepUntil(NsFromNow(AnHour)));
        EXPECT_TRUE(signals.SleepUntil(NsFromNow(AnHour)));
    }
}

TEST(TerminationSignals, WithoutASignalASleepEndsAtItsDeadline) {
    TerminationSignals signals;
    const std::int64_t deadline = NsFromNow(2'000'000);
    EXPECT_FALSE(signals.SleepUntil(deadline));
    EXPECT_GE(NsFromNow(0), deadline);
    EXPECT_FALSE(signals.SleepUntil(0)) << "a deadline in the past";
}

TEST(TerminationSignals, LeaveIgnoredSignalsIgnoredAndRestoreTheOthers) {
    const auto earlier = std::signal(SIGHUP, SIG_IGN);
    {
        TerminationSignals signals;
        std::raise(SIGHUP);
        EXPECT_FALSE(signals.SleepUntil(0));
    }
    EXPECT_EQ(std::signal(SIGHUP, earlier), SIG_IGN);
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace quavix
