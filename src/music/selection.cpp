// SPDX-License-Identifier: MIT
#include "music/selection.h"

#include "music/text.h"

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

void SetSelectedLineMod(MusicList& list, std::string_view text) {
    if (HasRealSelection(list))
        list.SetText(GetSelectedIndex(list), Cell::Mod, text);
}

}  // namespace quavix
