// SPDX-License-Identifier: MIT
#include "music/music_list.h"

#include <limits>
#include <utility>

#include "shell/runtime_error.h"

namespace quavix {
namespace {

std::size_t Index(std::int32_t row) {
    return static_cast<std::size_t>(row) - 1;
}

/// Raises IndexOutOfBounds unless row numbers ascend within 1 to `highest`.
void CheckRows(std::span<const std::int32_t> rows, std::int32_t highest) {
    std::int32_t before = 0;
    for (const std::int32_t row : rows) {
        if (row <= before || row > highest)
            throw RuntimeError(RuntimeError::IndexOutOfBounds);
        before = row;
    }
}

}  // namespace

template <typename Notification, typename... Args>
void MusicList::Notify(Notification notification, Args... args) {
    if (resetting_)
        return;
    for (MusicListObserver* observer : observers_)
        (observer->*notification)(args...);
}

std::size_t MusicList::IndexOf(std::int32_t row) const {
    if (row < 1 || row > Count())
        throw RuntimeError(RuntimeError::IndexOutOfBounds);
    return Index(row);
}

std::string_view MusicList::Text(std::int32_t row, Cell cell) const {
    return texts_.Text(TextId(row, cell));
}

TextPool::Id MusicList::TextId(std::int32_t row, Cell cell) const {
    return rows_[IndexOf(row)][static_cast<std::size_t>(cell)];
}

MusicLine MusicList::Line(std::int32_t row) const {
    return {std::string(Text(row, Cell::Length)), std::string(Text(row, Cell::Note1)),
            std::string(Text(row, Cell::Note2)), std::string(Text(row, Cell::Mod))};
}

void MusicList::SetText(std::int32_t row, Cell cell, std::string_view text) {
    TextPool::Id& id = rows_[IndexOf(row)][static_cast<std::size_t>(cell)];
    const TextPool::Id newId = texts_.IdOf(text);
    if (newId == id)
        return;
    Notify(&MusicListObserver::BeforeCellChanged, row, cell);
    id = newId;
    Notify(&MusicListObserver::CellChanged, row, cell);
}

void MusicList::Insert(std::int32_t row, const MusicLine& line) {
    InsertRows({&row, 1}, [&line](std::size_t) { return line.Cells(); });
}

void MusicList::Append(std::string_view length, std::string_view note1, std::string_view note2,
                       std::string_view mod) {
    if (Count() == std::numeric_limits<std::int32_t>::max())
        throw RuntimeError(RuntimeError::Overflow);
    const std::int32_t row = Count() + 1;
    Notify(&MusicListObserver::BeforeRowsInserted, std::span(&row, 1));
    rows_.push_back({texts_.IdOf(length), texts_.IdOf(note1), texts_.IdOf(note2), texts_.IdOf(mod)});
    Notify(&MusicListObserver::RowsInserted, std::span(&row, 1));
}

void MusicList::InsertRows(std::span<const std::int32_t> rows, const LineSource& line) {
    const auto room = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() - Count());
    if (rows.size() > room)
        throw RuntimeError(RuntimeError::Overflow);
    CheckRows(rows, Count() + static_cast<std::int32_t>(rows.size()));
    if (rows.empty())
        return;
    Notify(&MusicListObserver::BeforeRowsInserted, rows);
    std::size_t from = rows_.size();
    std::size_t to = from + rows.size();
    rows_.resize(to);
    for (std::size_t left = rows.size(); left > 0;) {
        --to;
        if (to == Index(rows[left - 1])) {
            --left;
            const std::array<std::string_view, 4> texts = line(left);
            rows_[to] = {};
            for (std::size_t cell = 0; cell < texts.size(); ++cell)
                rows_[to][cell] = texts_.IdOf(texts[cell]);
        } else {
            rows_[to] = rows_[--from];
        }
    }
    MoveSelection(&RowRuns::RowsInserted, rows);
    Notify(&MusicListObserver::RowsInserted, rows);
}

void MusicList::RemoveRows(std::span<const std::int32_t> rows) {
    CheckRows(rows, Count());
    if (rows.empty())
        return;
    Notify(&MusicListObserver::BeforeRowsRemoved, rows);
    const std::int32_t itemBefore = selectedItem_;
    const std::int32_t selectedBefore = SelectedCount();
    std::size_t to = Index(rows.front());
    auto next = rows.begin();
    for (std::size_t from = to; from < rows_.size(); ++from) {
        if (next != rows.end() && from == Index(*next))
            ++next;
        else
            rows_[to++] = rows_[from];
    }
    rows_.resize(to);
    MoveSelection(&RowRuns::RowsRemoved, rows);
    Notify(&MusicListObserver::RowsRemoved, rows);
    if (SelectedCount() != selectedBefore || (itemBefore != -1 && selectedItem_ == -1))
        Notify(&MusicListObserver::SelectionChanged);
}

void MusicList::MoveSelection(void (RowRuns::*move)(std::span<const std::int32_t>),
                              std::span<const std::int32_t> rows) {
    RowRuns item = selectedItem_ == -1 ? RowRuns() : RowRuns({{selectedItem_, selectedItem_}});
    (item.*move)(rows);
    (selected_.*move)(rows);
    selectedItem_ = item.Count() == 0 ? -1 : item.Runs().front().First;
}

void MusicList::Clear() {
    Notify(&MusicListObserver::BeforeReset);
    rows_.clear();
    texts_.Clear();
    selectedItem_ = -1;
    selected_ = {};
    Notify(&MusicListObserver::Reset);
}

bool MusicList::IsSelected(std::int32_t row) const {
    IndexOf(row);
    return selected_.Contains(row);
}

void MusicList::Select(std::int32_t row) {
    if (IsSelected(row) && SelectedCount() == 1 && selectedItem_ == row)
        return;
    selected_ = RowRuns({{row, row}});
    selectedItem_ = row;
    Notify(&MusicListObserver::SelectionChanged);
}

void MusicList::UnselectAll() {
    if (SelectedCount() == 0)
        return;
    selected_ = {};
    Notify(&MusicListObserver::SelectionChanged);
}

void MusicList::SetSelectedRuns(std::int32_t selectedItem, RowRuns rows) {
    if (selectedItem != -1)
        IndexOf(selectedItem);
    if (rows.Count() > 0) {
        IndexOf(rows.Runs().front().First);
        IndexOf(rows.Runs().back().Last);
    }
    selected_ = std::move(rows);
    selectedItem_ = selectedItem;
    Notify(&MusicListObserver::SelectionChanged);
}

void MusicList::EnsureVisible(std::int32_t row) {
    IndexOf(row);
    Notify(&MusicListObserver::EnsureVisible, row);
}

void MusicList::BeginReset() {
    Notify(&MusicListObserver::BeforeReset);
    resetting_ = true;
}

void MusicList::EndReset() {
    resetting_ = false;
    Notify(&MusicListObserver::Reset);
}

}  // namespace quavix
