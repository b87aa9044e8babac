// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace quavix {

/// The line that the music follows in a song file.
inline constexpr std::string_view MusicListStart = "MUSICLISTSTART";

/// Whether a line begins with it, in any letter case.
bool IsMusicListStart(std::string_view line);

/// The cells of a music line as it stands in a song file; views into the line.
struct MusicLineText {
    std::string_view Length{};
    std::string_view Note1{};
    std::string_view Note2{};
    std::string_view Mod{};
    /// A line needs a length and two notes; one with less has at most its length, and no notes.
    bool Complete = false;
};

/// Splits a line at its first three blanks; "-" becomes an empty cell. A complete line's notes are put into
/// upper case where they stand; an incomplete line stays as it is.
MusicLineText SplitMusicLine(std::span<char> line);

}  // namespace quavix
