// SPDX-License-Identifier: MIT
#include "music/row_runs.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "support/selection.h"

namespace quavix {
namespace {

using testing::ElementsAre;
using Rows = std::vector<std::int32_t>;

TEST(RowRuns, JoinWhatTouchesOrOverlaps) {
    EXPECT_THAT(test::RunsOf(Rows{3, 1, 2, 2, 7}).Runs(), ElementsAre(RowRun{1, 3}, RowRun{7, 7}));
    EXPECT_THAT(RowRuns({{8, 9}, {1, 4}, {3, 6}, {2, 3}, {7, 6}}).Runs(),
                ElementsAre(RowRun{1, 6}, RowRun{8, 9}));
    EXPECT_EQ(RowRuns({{8, 9}, {1, 4}, {3, 6}}).Count(), 8);
    EXPECT_EQ(RowRuns().Rows(), Rows());
}

TEST(RowRuns, UseNoMemoryForTheirLength) {
    constexpr std::int32_t Most = 2'000'000'000;
    RowRuns all({{1, Most}});
    all.RowsInserted(Rows{1000});
    all.RowsRemoved(Rows{Most});
    EXPECT_THAT(all.Runs(), ElementsAre(RowRun{1, 999}, RowRun{1001, Most}));
    EXPECT_EQ(all.Count(), Most - 1);
}

/// Some of the rows from 1 to `highest`.
Rows SomeOf(std::int32_t highest, std::mt19937& random) {
    Rows rows;
    const auto density = random() % 4 + 1;
    for (std::int32_t row = 1; row <= highest; ++row) {
        if (random() % density == 0)
            rows.push_back(row);
    }
    return rows;
}

TEST(RowRuns, AreTheRowsThatASetWouldHold) {
    std::mt19937 random(31);
    constexpr std::int32_t Highest = 30;
    for (int round = 0; round < 3000; ++round) {
        Rows rows = SomeOf(Highest, random);
        RowRuns runs = test::RunsOf(rows);
        for (int change = 0; change < 5; ++change) {
            Rows expected;
            const Rows others = SomeOf(Highest, random);
            if (random() % 2 == 0) {
                // Row by row, each new one moves those from there on down.
                expected = rows;
                for (const std::int32_t added : others)
                    for (std::int32_t& row : expected)
                        row += row >= added ? 1 : 0;
                runs.RowsInserted(others);
            } else {
                for (const std::int32_t row : rows) {
                    if (!std::binary_search(others.begin(), others.end(), row))
                        expected.push_back(row - static_cast<std::int32_t>(std::count_if(
                                                     others.begin(), others.end(),
                                                     [&](std::int32_t gone) { return gone < row; })));
                }
                runs.RowsRemoved(others);
            }
            ASSERT_EQ(runs.Rows(), expected);
            ASSERT_EQ(runs, test::RunsOf(expected));
            ASSERT_EQ(runs.Count(), static_cast<std::int32_t>(expected.size()));
            for (std::int32_t row = 0; row <= 2 * Highest; ++row)
                ASSERT_EQ(runs.Contains(row), std::binary_search(expected.begin(), expected.end(), row));
            rows = expected;
        }
    }
}

}  // namespace
}  // namespace quavix
