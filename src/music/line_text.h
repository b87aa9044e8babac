// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "music/music_list.h"

namespace quavix {

/// Appends a row as it stands in a song file, "Quarter C4 - Dot" with "-" for an empty cell, without an end
/// of line.
void AppendLineText(std::string& text, const MusicList& list, std::int32_t row);

/// Rows as song text, each ended by a line feed.
std::string TextOfLines(const MusicList& list, std::span<const std::int32_t> rows);

/// What a text holds of music.
struct LinesOfText {
    std::vector<MusicLine> Lines{};
    /// How many lines had fewer than the three fields a line needs, and were left out.
    std::size_t Rejected = 0;
};

/// Reads song text as a song file's music is read: "Length Note1 Note2" or "Length Note1 Note2 Mod", "-" for
/// an empty cell, notes in any letter case. Lines end in line feeds, carriage returns or both; blank lines
/// and those that begin with "//" are passed over.
LinesOfText ReadLines(std::string text);

}  // namespace quavix
