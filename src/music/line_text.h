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

/// Rows as song text, each ended by a line feed. Where one of them holds what nobody would type as music
/// ("Dot and more", from a song file that was written by hand), "MUSICLISTSTART" stands in front, so that
/// ReadLines() takes all of them as they are.
std::string TextOfLines(const MusicList& list, std::span<const std::int32_t> rows);

/// What a text holds of music.
struct LinesOfText {
    std::vector<MusicLine> Lines{};
    /// How many lines are no music, and were left out.
    std::size_t Rejected = 0;
};

/// Reads the music out of a text: lines "Length Note1 Note2" or "Length Note1 Note2 Mod" with a length as
/// written ("Whole", in this letter case), notes ("C#4", in any letter case) or "-", and "Dot", "Tri" (in any
/// letter case, which is kept), "-" or nothing. Lines end in line feeds, carriage returns or both; blank
/// lines and those that begin with "//" are passed over. What stands before a line "MUSICLISTSTART", as in a
/// whole song file, is no music and not counted; a text that begins with this line is read as a song file's
/// music is, with anything in its cells.
LinesOfText ReadLines(std::string text);

}  // namespace quavix
