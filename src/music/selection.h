// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

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

/// The rows that an editing command works on: all with their flag set, or none without a real selection.
std::vector<std::int32_t> ReallySelectedRows(const MusicList& list);

/// Writes a cell of the really selected rows; does nothing without one.
void SetSelectedLines(MusicList& list, Cell cell, std::string_view text);

/// The same for the Mod.
void SetSelectedLineMod(MusicList& list, std::string_view text);

/// Removes rows, of which there must be one and whose numbers must ascend. The row that comes to stand in the
/// place of the last of them is selected; where there is none, nothing is.
void RemoveAndSelectNext(MusicList& list, std::span<const std::int32_t> rows);

}  // namespace quavix
