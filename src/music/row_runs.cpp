// SPDX-License-Identifier: MIT
#include "music/row_runs.h"

#include <algorithm>
#include <utility>

namespace quavix {

RowRuns::RowRuns(std::vector<RowRun> runs) {
    if (!std::ranges::is_sorted(runs, {}, &RowRun::First))
        std::ranges::sort(runs, {}, &RowRun::First);
    for (const RowRun& run : runs)
        Append(runs_.empty() ? run : RowRun{std::max(run.First, runs_.back().Last + 1), run.Last});
}

void RowRuns::Append(RowRun run) {
    if (run.Last < run.First)
        return;
    count_ += run.Last - run.First + 1;
    if (!runs_.empty() && runs_.back().Last == run.First - 1)
        runs_.back().Last = run.Last;
    else
        runs_.push_back(run);
}

bool RowRuns::Contains(std::int32_t row) const {
    const auto behind = std::ranges::upper_bound(runs_, row, {}, &RowRun::First);
    return behind != runs_.begin() && std::prev(behind)->Last >= row;
}

std::vector<std::int32_t> RowRuns::Rows() const {
    std::vector<std::int32_t> rows;
    rows.reserve(static_cast<std::size_t>(count_));
    for (const RowRun& run : runs_) {
        for (std::int32_t row = run.First; row <= run.Last; ++row)
            rows.push_back(row);
    }
    return rows;
}

void RowRuns::RowsInserted(std::span<const std::int32_t> rows) {
    RowRuns moved;
    std::int32_t before = 0;
    // True if the next inserted row comes before this row of the shorter list.
    const auto isBefore = [&](std::int32_t row) {
        const auto index = static_cast<std::size_t>(before);
        return index < rows.size() && rows[index] - before <= row;
    };
    for (const RowRun& run : runs_) {
        while (isBefore(run.First))
            ++before;
        std::int32_t first = run.First + before;
        for (; isBefore(run.Last); ++before) {
            const std::int32_t inserted = rows[static_cast<std::size_t>(before)];
            moved.Append({first, inserted - 1});
            first = inserted + 1;
        }
        moved.Append({first, run.Last + before});
    }
    *this = std::move(moved);
}

void RowRuns::RowsRemoved(std::span<const std::int32_t> rows) {
    RowRuns moved;
    auto next = rows.begin();
    std::int32_t before = 0;
    for (const RowRun& run : runs_) {
        for (; next != rows.end() && *next < run.First; ++next)
            ++before;
        const std::int32_t first = run.First - before;
        for (; next != rows.end() && *next <= run.Last; ++next)
            ++before;
        moved.Append({first, run.Last - before});
    }
    *this = std::move(moved);
}

}  // namespace quavix
