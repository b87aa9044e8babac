// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "music/music_list.h"
#include "music/text_pool.h"

namespace quavix {

/// One change of the list's texts; texts are numbers of the history's pool.
struct EditChange {
    enum class Kind { Inserted, Removed, CellWritten };
    using Line = std::array<TextPool::Id, 4>;

    Kind What{};
    /// Row numbers in the longer list, ascending.
    std::vector<std::int32_t> Rows{};
    /// Texts of inserted or removed rows.
    std::vector<Line> Lines{};
    /// The cell written in each row, its old texts, and the new text of all of them.
    Cell Written{};
    std::vector<TextPool::Id> Before{};
    TextPool::Id After = 0;
};

/// A list's selected item and flags.
struct ListSelection {
    std::int32_t Item = -1;
    RowRuns Rows{};

    static ListSelection Of(const MusicList& list);
};

/// The changes of one gesture, and the selection before and after it.
struct EditStep {
    std::string Name{};
    std::vector<EditChange> Changes{};
    ListSelection SelectionBefore{};
    ListSelection SelectionAfter{};
    /// Identifies the song's state after this step; unique.
    std::uint64_t State = 0;
    /// Size of the step, as counted by CountSize().
    std::size_t Size = 0;

    /// Makes the changes again, or takes them back if `back`.
    void Apply(MusicList& list, const TextPool& texts, bool back) const;

    /// Adds a change and joins it to the last one if possible: the same cell written twice (dropped if it
    /// holds its old text again), rows inserted one below the other, or rows given the same text.
    void Add(EditChange change);
    bool ChangesOnlyMods() const;
    /// Returns the number of rows and runs kept, as a measure of memory.
    std::size_t CountSize() const;
};

}  // namespace quavix
