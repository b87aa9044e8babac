// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "music/music_list.h"

namespace quavix {

/// Returns the row of the list's selected item, or -1 if there is none. The row's flag may be clear.
std::int32_t GetSelectedIndex(const MusicList& list);

/// Returns true if a row with that number exists.
bool DoesIndexExist(const MusicList& list, std::int32_t indexToCheck);

/// Returns true if there is a selected item with its flag set. Every editing command checks this first.
bool HasRealSelection(const MusicList& list);

/// Returns true if there is a selected item, and its Mod contains `text` in any letter case.
bool SelectedLineModContains(const MusicList& list, std::string_view text);

/// Returns the rows for an editing command: all with their flag set, or none without a real selection.
std::vector<std::int32_t> ReallySelectedRows(const MusicList& list);

/// Writes a cell of the really selected rows; does nothing without one.
void SetSelectedLines(MusicList& list, Cell cell, std::string_view text);

/// Same for the Mod.
void SetSelectedLineMod(MusicList& list, std::string_view text);

/// Removes rows, at least one, in ascending order. Selects the row that takes the place of the last of them,
/// if there is one.
void RemoveAndSelectNext(MusicList& list, std::span<const std::int32_t> rows);

}  // namespace quavix
