// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "music/row_runs.h"
#include "music/text_pool.h"

namespace quavix {

/// One line of music as text: length as written, two note strings (empty: none), modifier ("Dot", "Tri" or
/// empty).
struct MusicLine {
    std::string Length;
    std::string Note1;
    std::string Note2;
    std::string Mod;

    std::array<std::string_view, 4> Cells() const { return {Length, Note1, Note2, Mod}; }

    friend bool operator==(const MusicLine&, const MusicLine&) = default;
};

/// A column of the music list.
enum class Cell { Length, Note1, Note2, Mod };

/// Receives every change of a music list; for inserted and removed rows, before and after. Rows count from 1.
/// The list must not be changed during a notification.
class MusicListObserver {
  public:
    MusicListObserver() = default;
    MusicListObserver(const MusicListObserver&) = delete;
    MusicListObserver& operator=(const MusicListObserver&) = delete;
    virtual ~MusicListObserver() = default;
    /// `rows` are at least one, in ascending order, by their numbers in the longer list. By default these are
    /// handled as a reset.
    virtual void BeforeRowsInserted(std::span<const std::int32_t> /*rows*/) { BeforeReset(); }
    virtual void RowsInserted(std::span<const std::int32_t> /*rows*/) { Reset(); }
    virtual void BeforeRowsRemoved(std::span<const std::int32_t> /*rows*/) { BeforeReset(); }
    virtual void RowsRemoved(std::span<const std::int32_t> /*rows*/) { Reset(); }
    /// Until Reset(), everything may change.
    virtual void BeforeReset() {}
    virtual void Reset() {}
    virtual void BeforeCellChanged(std::int32_t /*row*/, Cell /*cell*/) {}
    virtual void CellChanged(std::int32_t /*row*/, Cell /*cell*/) {}
    /// Called when the selected item or a selected flag has changed.
    virtual void SelectionChanged() {}
    /// Called to scroll a row into view.
    virtual void EnsureVisible(std::int32_t /*row*/) {}
};

/// The song: rows of four text cells, a selected item and a selected flag per row. Rows are numbered from 1;
/// a row number outside the list raises IndexOutOfBounds. The only store of the song.
///
/// The selected item may lack its flag (after a click on empty space the item is still reported, but its
/// highlight is gone); HasRealSelection() requires both.
class MusicList {
  public:
    std::int32_t Count() const { return static_cast<std::int32_t>(rows_.size()); }

    /// Returns a cell's text; the view is valid until the list is cleared.
    std::string_view Text(std::int32_t row, Cell cell) const;
    MusicLine Line(std::int32_t row) const;
    /// Returns a number for a cell's text: equal texts have equal numbers, until the list is cleared.
    TextPool::Id TextId(std::int32_t row, Cell cell) const;
    void SetText(std::int32_t row, Cell cell, std::string_view text);

    /// Adds a row at 1..Count() + 1; later rows move down by one, with their selection.
    void Insert(std::int32_t row, const MusicLine& line);
    /// Adds a row at the end. Raises Overflow if no row number is left.
    void Append(std::string_view length, std::string_view note1, std::string_view note2,
                std::string_view mod);
    /// Reserves room for this many rows in total, to save time when very many are added.
    void Reserve(std::size_t rows) { rows_.reserve(rows); }
    /// Adds several rows at once, which get the numbers `rows`. The numbers must ascend and leave no gap
    /// after the list's end. `line` returns the four cells of the row `rows[index]`; it is called once for
    /// each, in any order.
    using LineSource = std::function<std::array<std::string_view, 4>(std::size_t index)>;
    void InsertRows(std::span<const std::int32_t> rows, const LineSource& line);
    /// Removes a row; later rows move up by one. If it was the selected item, there is none afterwards.
    void Remove(std::int32_t row) { RemoveRows({&row, 1}); }
    /// Removes several rows at once; their numbers must ascend.
    void RemoveRows(std::span<const std::int32_t> rows);
    void Clear();

    /// Returns the row of the selected item, or -1 if there is none.
    std::int32_t SelectedItem() const { return selectedItem_; }
    bool IsSelected(std::int32_t row) const;
    /// Returns the number of rows with their flag set.
    std::int32_t SelectedCount() const { return selected_.Count(); }
    /// Return the rows with their flag set, as runs or in ascending order.
    const RowRuns& SelectedRuns() const { return selected_; }
    std::vector<std::int32_t> SelectedRows() const { return selected_.Rows(); }
    /// Makes a row the selected item, sets its flag and clears all others.
    void Select(std::int32_t row);
    /// Clears all flags; the selected item stays.
    void UnselectAll();
    /// Sets the selected item (-1: none) and the rows with their flag set, as in a view with several selected
    /// rows.
    void SetSelectedRuns(std::int32_t selectedItem, RowRuns rows);

    /// Asks the views to scroll a row into view.
    void EnsureVisible(std::int32_t row);

    /// Between these two calls, changes of rows and cells are reported as one reset at the end: for changes
    /// of very many rows. Calls must pair up and not be nested.
    void BeginReset();
    void EndReset();

    /// Observers are called in the order in which they were added; each must be removed before its end.
    void AddObserver(MusicListObserver& observer) { observers_.push_back(&observer); }
    void RemoveObserver(MusicListObserver& observer) { std::erase(observers_, &observer); }

  private:
    using Row = std::array<TextPool::Id, 4>;

    /// Returns the index of an existing row.
    std::size_t IndexOf(std::int32_t row) const;
    /// Renumbers the selection by RowRuns::RowsInserted or RowRuns::RowsRemoved.
    void MoveSelection(void (RowRuns::*move)(std::span<const std::int32_t>),
                       std::span<const std::int32_t> rows);
    template <typename Notification, typename... Args>
    void Notify(Notification notification, Args... args);

    std::vector<Row> rows_;
    TextPool texts_;
    std::int32_t selectedItem_ = -1;
    RowRuns selected_;
    bool resetting_ = false;
    std::vector<MusicListObserver*> observers_;
};

/// Keeps a list in a reset during its lifetime.
class MusicListReset {
  public:
    explicit MusicListReset(MusicList& list) : list_(list) { list_.BeginReset(); }
    ~MusicListReset() { list_.EndReset(); }
    MusicListReset(const MusicListReset&) = delete;
    MusicListReset& operator=(const MusicListReset&) = delete;

  private:
    MusicList& list_;
};

}  // namespace quavix
