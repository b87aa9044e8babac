// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quavix {

/// A run of neighbouring rows, both ends included.
struct RowRun {
    std::int32_t First;
    std::int32_t Last;

    friend bool operator==(const RowRun&, const RowRun&) = default;
};

/// A set of rows, stored as runs: its cost depends on the number of runs and not on their lengths, so that
/// all rows of a long list are as fast as one.
class RowRuns {
  public:
    RowRuns() = default;
    /// Makes a set of runs in any order, which may overlap.
    explicit RowRuns(std::vector<RowRun> runs);

    /// Returns the runs in ascending order, with at least one row between neighbours.
    const std::vector<RowRun>& Runs() const { return runs_; }
    /// Returns the number of rows.
    std::int32_t Count() const { return count_; }
    bool Contains(std::int32_t row) const;
    /// Returns every row, in ascending order.
    std::vector<std::int32_t> Rows() const;

    /// Renumber the set after a change of the list, so that it holds the same rows. `rows` ascend, as numbers
    /// of the longer list; inserted rows are not in the set.
    void RowsInserted(std::span<const std::int32_t> rows);
    void RowsRemoved(std::span<const std::int32_t> rows);

    friend bool operator==(const RowRuns&, const RowRuns&) = default;

  private:
    /// Adds a run after all others, joined to the last one if they touch; does nothing if it is empty.
    void Append(RowRun run);

    std::vector<RowRun> runs_;
    std::int32_t count_ = 0;
};

}  // namespace quavix
