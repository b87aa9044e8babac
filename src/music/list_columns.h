// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace quavix {

/// A column of the music list as its view shows it.
struct ListColumn {
    const char* Header;
    /// Width in the list's own units; a wider list shares its width out in these proportions.
    int Width;
};

/// In the order of the cells of a row.
inline constexpr std::array<ListColumn, 4> MainListColumns = {
    {{"Length", 49}, {"Note 1", 44}, {"Note 2", 44}, {"Mod", 39}}};

}  // namespace quavix
