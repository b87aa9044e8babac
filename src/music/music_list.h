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

/// One line of music, all text: length as written, two note strings (empty: none), modifier ("Dot", "Tri" or
/// empty).
struct MusicLine {
    std::string Length;
    std::string Note1;
    std::string Note2;
    std::string Mod;

    friend bool operator==(const MusicLine&, const MusicLine&) = default;
};

/// A column of the music list.
enum class Cell { Length, Note1, Note2, Mod };

/// Told of every change of a music list, before and after where rows come or go. Rows count from 1. The list
/// must not be changed from inside a notification.
class MusicListObserver {
  public:
    virtual ~MusicListObserver() = default;
    virtual void BeforeRowInserted(std::int32_t /*row*/) {}
    virtual void RowInserted(std::int32_t /*row*/) {}
    virtual void BeforeRowRemoved(std::int32_t /*row*/) {}
    virtual void RowRemoved(std::int32_t /*row*/) {}
    /// Several rows at once, in ascending order, by the numbers they have in the longer list. Those who don't
    /// tell such changes from a reset need not.
    virtual void BeforeRowsInserted(std::span<const std::int32_t> /*rows*/) { BeforeReset(); }
    virtual void RowsInserted(std::span<const std::int32_t> /*rows*/) { Reset(); }
    virtual void BeforeRowsRemoved(std::span<const std::int32_t> /*rows*/) { BeforeReset(); }
    virtual void RowsRemoved(std::span<const std::int32_t> /*rows*/) { Reset(); }
    /// Everything may change until Reset().
    virtual void BeforeReset() {}
    virtual void Reset() {}
    virtual void BeforeCellChanged(std::int32_t /*row*/, Cell /*cell*/) {}
    virtual void CellChanged(std::int32_t /*row*/, Cell /*cell*/) {}
    /// The selected item or any selected flag has changed.
    virtual void SelectionChanged() {}
    /// The row is to be scrolled into view.
    virtual void EnsureVisible(std::int32_t /*row*/) {}
};

/// The song: rows of four text cells, a selected item and a selected flag per row. Rows are numbered from 1;
/// a row number outside the list raises IndexOutOfBounds. The only store of the song.
///
/// The selected item can outlive its flag (after a click on empty space the item is still reported, its
/// highlight gone); HasRealSelection() asks for both.
class MusicList {
  public:
    MusicList() = default;
    MusicList(const MusicList&) = delete;
    MusicList& operator=(const MusicList&) = delete;

    std::int32_t Count() const { return static_cast<std::int32_t>(rows_.size()); }

    /// A cell's text; the view is valid until the list is cleared.
    std::string_view Text(std::int32_t row, Cell cell) const;
    MusicLine Line(std::int32_t row) const;
    /// Stands for a cell's text: equal texts have equal numbers, until the list is cleared.
    TextPool::Id TextId(std::int32_t row, Cell cell) const;
    void SetText(std::int32_t row, Cell cell, std::string_view text);

    /// Adds a row at 1..Count() + 1; the rows from there on move down by one, with their selection.
    void Insert(std::int32_t row, const MusicLine& line);
    /// Adds a row at the end. Raises Overflow where no row number is left.
    void Append(std::string_view length, std::string_view note1, std::string_view note2,
                std::string_view mod);
    /// Makes room for so many rows in all, to save time when very many are added.
    void Reserve(std::size_t rows) { rows_.reserve(rows); }
    /// Adds rows so that they have the numbers `rows` afterwards, in one go. The numbers must ascend and
    /// leave no gap behind the list's end. `line` gives the four cells of the row `rows[index]`; it is called
    /// once for each, in no certain order.
    using LineSource = std::function<std::array<std::string_view, 4>(std::size_t index)>;
    void InsertRows(std::span<const std::int32_t> rows, const LineSource& line);
    /// Removes a row; the rows behind it move up by one. Where it was the selected item, there is none
    /// afterwards.
    void Remove(std::int32_t row);
    /// Removes rows in one go; their numbers must ascend.
    void RemoveRows(std::span<const std::int32_t> rows);
    void Clear();

    /// Row of the selected item, -1 when there is none.
    std::int32_t SelectedItem() const { return selectedItem_; }
    bool IsSelected(std::int32_t row) const;
    /// How many rows have their flag set.
    std::int32_t SelectedCount() const { return selected_.Count(); }
    /// The rows that have it set, as runs or in ascending order.
    const RowRuns& SelectedRuns() const { return selected_; }
    std::vector<std::int32_t> SelectedRows() const { return selected_.Rows(); }
    /// Makes a row the selected item with its flag set and all other flags clear.
    void Select(std::int32_t row);
    /// Clears a row's flag; it stays the selected item where it is that.
    void Unselect(std::int32_t row);
    /// Clears all flags; the selected item stays.
    void UnselectAll();
    /// Takes over which rows have their flags set and which is the selected item (-1: none), as a view with
    /// several selected rows knows them. `rows` may stand in any order.
    void SetSelection(std::int32_t selectedItem, const std::vector<std::int32_t>& rows);
    /// The same for rows that are runs already.
    void SetSelectedRuns(std::int32_t selectedItem, RowRuns rows);

    /// Asks whoever shows the list to scroll a row into view.
    void EnsureVisible(std::int32_t row);

    /// Between these two, observers hear nothing of rows and cells but one reset at the end: for changes of
    /// very many rows. Calls must pair up; not nested.
    void BeginReset();
    void EndReset();

    /// Observers are told in the order in which they were added; each must be removed before its end.
    void AddObserver(MusicListObserver& observer) { observers_.push_back(&observer); }
    void RemoveObserver(MusicListObserver& observer) { std::erase(observers_, &observer); }

  private:
    using Row = std::array<TextPool::Id, 4>;

    Row& At(std::int32_t row);
    const Row& At(std::int32_t row) const;
    template <typename Notification, typename... Args>
    void Notify(Notification notification, Args... args);

    std::vector<Row> rows_;
    TextPool texts_;
    std::int32_t selectedItem_ = -1;
    RowRuns selected_;
    bool resetting_ = false;
    std::vector<MusicListObserver*> observers_;
};

/// Keeps a list in its reset for as long as it lives.
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
