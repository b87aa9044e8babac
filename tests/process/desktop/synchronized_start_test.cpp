// SPDX-License-Identifier: MIT
#include <sys/wait.h>

#include <gtest/gtest.h>

#include "desktop_process.h"

namespace quavix {
namespace {

TEST(SynchronizedStart, TwoProcessesStartWhenTheClockShowsTheTimeAndNotBefore) {
    const StartTime start(1);
    DesktopProcess first(start.ChildsArguments(), start.TimeZone);
    DesktopProcess second(start.ChildsArguments(), start.TimeZone);
    for (DesktopProcess* process : {&first, &second}) {
        const auto tone = process->NextTone();
        ASSERT_TRUE(tone);
        EXPECT_EQ(tone->Hz, 440);
        EXPECT_GE(tone->AtNs, start.AtNs);
        const int status = process->Wait();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
}

}  // namespace
}  // namespace quavix
