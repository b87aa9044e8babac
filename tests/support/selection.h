// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "music/music_list.h"

namespace quavix::test {

/// Returns the set of these rows, which may be in any order.
inline RowRuns RunsOf(const std::vector<std::int32_t>& rows) {
    std::vector<RowRun> runs;
    for (const std::int32_t row : rows)
        runs.push_back({row, row});
    return RowRuns(std::move(runs));
}

/// Selects rows in a list, as in a view with several selected rows.
inline void SetSelection(MusicList& list, std::int32_t selectedItem, const std::vector<std::int32_t>& rows) {
    list.SetSelectedRuns(selectedItem, RunsOf(rows));
}

}  // namespace quavix::test
