// SPDX-License-Identifier: MIT
#include "music/selection.h"

#include "shell/lower_case.h"

namespace quavix {

std::int32_t GetSelectedIndex(const MusicList& list) {
    return list.SelectedItem();
}

bool DoesIndexExist(const MusicList& list, std::int32_t indexToCheck) {
    return indexToCheck >= 1 && indexToCheck <= list.Count();
}

bool HasRealSelection(const MusicList& list) {
    const std::int32_t selected = GetSelectedIndex(list);
    return selected != -1 && list.IsSelected(selected);
}

bool SelectedLineModContains(const MusicList& list, std::string_view text) {
    const std::int32_t selected = GetSelectedIndex(list);
    return selected != -1 &&
           LowerCase(list.Text(selected, Cell::Mod)).find(LowerCase(text)) != std::string::npos;
}

std::vector<std::int32_t> ReallySelectedRows(const MusicList& list) {
    return HasRealSelection(list) ? list.SelectedRows() : std::vector<std::int32_t>();
}

void SetSelectedLines(MusicList& list, Cell cell, std::string_view text) {
    for (const std::int32_t row : ReallySelectedRows(list))
        list.SetText(row, cell, text);
}

void SetSelectedLineMod(MusicList& list, std::string_view text) {
    SetSelectedLines(list, Cell::Mod, text);
}

void RemoveAndSelectNext(MusicList& list, std::span<const std::int32_t> rows) {
    list.RemoveRows(rows);
    const std::int32_t next = rows.back() + 1 - static_cast<std::int32_t>(rows.size());
    if (DoesIndexExist(list, next))
        list.Select(next);
}

}  // namespace quavix
