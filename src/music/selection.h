// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "music/music_list.h"

namespace quavix {

/// Row of the list's selected item, or -1 when it has none. The row's flag may be clear.
std::int32_t GetSelectedIndex(const MusicList& list);

/// Whether a row of that number exists.
bool DoesIndexExist(const MusicList& list, std::int32_t indexToCheck);

/// Whether there is a selected item whose flag is set: what every editing command asks first.
bool HasRealSelection(const MusicList& list);

/// Whether the selected item's Mod contains `text`, in any letter case. False without a selected item.
bool SelectedLineModContains(const MusicList& list, std::string_view text);

/// Writes the Mod of the really selected row; does nothing without one.
void SetSelectedLineMod(MusicList& list, std::string_view text);

}  // namespace quavix
