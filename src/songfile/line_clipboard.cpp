// SPDX-License-Identifier: MIT
#include "songfile/line_clipboard.h"

#include <numeric>
#include <string>
#include <utility>

#include "music/selection.h"

namespace quavix {
namespace {

/// Returns e.g. "Cut line" or "Cut lines".
std::string GestureName(const char* verb, std::size_t lines) {
    return std::string(verb) + (lines == 1 ? " line" : " lines");
}

}  // namespace

LineClipboard::LineClipboard(MusicList& list, Clipboard& clipboard, EditHistory& history,
                             std::function<void()> showPosition)
    : list_(list), clipboard_(clipboard), history_(history), showPosition_(std::move(showPosition)) {
    list_.AddObserver(*this);
    SelectionChanged();
}

LineClipboard::~LineClipboard() {
    list_.RemoveObserver(*this);
}

void LineClipboard::CopyLines() {
    const std::vector<std::int32_t> rows = list_.SelectedRows();
    if (!rows.empty())
        clipboard_.SetText(TextOfLines(list_, rows));
}

void LineClipboard::CutLines() {
    CopyLines();
    Remove("Cut");
}

void LineClipboard::EraseLines() {
    Remove("Erase");
}

LineClipboard::PasteResult LineClipboard::PasteLines() {
    const LinesOfText read = ReadLines(clipboard_.Text());
    if (!read.Lines.empty()) {
        const EditGesture gesture(history_, GestureName("Paste", read.Lines.size()));
        const std::vector<std::int32_t> selected = list_.SelectedRows();
        const std::int32_t row = selected.empty() ? list_.Count() + 1 : selected.front();
        InsertBlock(row, read.Lines);
        list_.EnsureVisible(row);
        showPosition_();
    }
    return {.Pasted = read.Lines.size(), .Rejected = read.Rejected};
}

void LineClipboard::DuplicateLines() {
    const std::vector<std::int32_t> selected = list_.SelectedRows();
    if (selected.empty())
        return;
    const EditGesture gesture(history_, GestureName("Duplicate", selected.size()));
    std::vector<MusicLine> lines;
    lines.reserve(selected.size());
    for (const std::int32_t row : selected)
        lines.push_back(list_.Line(row));
    const std::int32_t first = selected.back() + 1;
    InsertBlock(first, lines);
    const std::int32_t last = selected.back() + static_cast<std::int32_t>(selected.size());
    list_.SetSelectedRuns(first, RowRuns({{first, last}}));
    list_.EnsureVisible(first);
    showPosition_();
}

/// Removes the selected lines; the name of the gesture begins with the verb.
void LineClipboard::Remove(const char* verb) {
    const std::vector<std::int32_t> rows = list_.SelectedRows();
    if (rows.empty())
        return;
    const EditGesture gesture(history_, GestureName(verb, rows.size()));
    RemoveAndSelectNext(list_, rows);
    showPosition_();
}

void LineClipboard::SelectionChanged() {
    LinesSelected = list_.SelectedCount() > 0;
}

void LineClipboard::InsertBlock(std::int32_t row, const std::vector<MusicLine>& lines) {
    std::vector<std::int32_t> rows(lines.size());
    std::iota(rows.begin(), rows.end(), row);
    list_.InsertRows(rows, [&lines](std::size_t index) { return lines[index].Cells(); });
}

}  // namespace quavix
