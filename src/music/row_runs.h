// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quavix {

/// Neighbouring rows, both ends included.
struct RowRun {
    std::int32_t First;
    std::int32_t Last;

    friend bool operator==(const RowRun&, const RowRun&) = default;
};

/// A set of rows, kept as runs: what it costs depends on how many runs there are and not on their lengths, so
/// that all rows of a long list are as quick as one.
class RowRuns {
  public:
    RowRuns() = default;
    /// Runs in any order, which may overlap.
    explicit RowRuns(std::vector<RowRun> runs);
    /// Rows in any order, which may come several times.
    static RowRuns Of(std::span<const std::int32_t> rows);

    /// In ascending order; there is a row between one and the next.
    const std::vector<RowRun>& Runs() const { return runs_; }
    /// How many rows.
    std::int32_t Count() const { return count_; }
    bool Contains(std::int32_t row) const;
    /// Every row, in ascending order.
    std::vector<std::int32_t> Rows() const;

    void Remove(std::int32_t row);
    void Clear();

    /// The rows stay the same ones while others come and go in their list. Numbers ascend and are those of
    /// the longer list; rows that come are not in the set.
    void RowsInserted(std::span<const std::int32_t> rows);
    void RowsRemoved(std::span<const std::int32_t> rows);

    friend bool operator==(const RowRuns&, const RowRuns&) = default;

  private:
    /// Behind all others, joined to the last one where they touch; nothing where it is empty.
    void Append(RowRun run);

    std::vector<RowRun> runs_;
    std::int32_t count_ = 0;
};

}  // namespace quavix
