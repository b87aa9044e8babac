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
    /// Numbers in the longer list, ascending.
    std::vector<std::int32_t> Rows{};
    /// What stands in inserted or removed rows.
    std::vector<Line> Lines{};
    /// The cell that was written in each row, what it held, and what all of them hold.
    Cell Written{};
    std::vector<TextPool::Id> Before{};
    TextPool::Id After = 0;
};

/// A list's selected item and flags.
struct ListSelection {
    std::int32_t Item = -1;
    RowRuns Rows{};

    static ListSelection Of(const MusicList& list);
    void Restore(MusicList& list) const;
};

/// What one gesture changed, and the selection around it.
struct EditStep {
    std::string Name{};
    std::vector<EditChange> Changes{};
    ListSelection SelectionBefore{};
    ListSelection SelectionAfter{};
    /// Names the state of the song after this step; no two states share one.
    std::uint64_t State = 0;
    /// What it adds to the size of the history.
    std::size_t Size = 0;

    void TakeBack(MusicList& list, const TextPool& texts) const;
    void DoAgain(MusicList& list, const TextPool& texts) const;

    /// Joins a change to the ones before it. A cell written twice in a row is one change, and none where it
    /// holds again what it held; rows inserted one below the other, or given the same text, are one too.
    void Add(EditChange change);
    bool ChangesOnlyMods() const;
    /// Rows and runs kept, as a measure of memory.
    std::size_t CountSize() const;
};

}  // namespace quavix
