// SPDX-License-Identifier: MIT
#include "shell/watched.h"

#include <string>

#include <gtest/gtest.h>

namespace quavix {
namespace {

TEST(Watched, TellsOfEachNewValueOnce) {
    Watched<int> value(1);
    std::string heard;
    value.Watch([&](int now) { heard += std::to_string(now) + " "; });
    value = 2;
    value = 2;
    value = 3;
    EXPECT_EQ(heard, "2 3 ");
}

TEST(Watched, AWatcherMaySetTheValueAgainAndTheLastOneSetWins) {
    Watched<int> value(1);
    int heard = 0;
    value.Watch([&](int now) {
        if (now > 10)
            value = 10;
    });
    value.Watch([&](int now) { heard = now; });
    value = 99;
    EXPECT_EQ(value, 10);
    EXPECT_EQ(heard, 10);
}

TEST(Watched, AWatcherMayAddOthers) {
    Watched<int> value(0);
    int heard = 0;
    const std::string text = "more than fits into the function itself";
    value.Watch([&value, &heard, text](int) {
        for (int i = 0; i < 100; ++i)
            value.Watch([&heard](int now) { heard += now; });
        EXPECT_EQ(text.size(), 39U);
    });
    value = 1;
    EXPECT_EQ(heard, 100);
}

}  // namespace
}  // namespace quavix
