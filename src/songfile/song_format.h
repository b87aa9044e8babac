// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/files.h"
#include "shell/debug_log.h"

// A song as text: a header line, settings lines "Key Value", a line "MUSICLISTSTART", and music lines
// "Length Note1 Note2 Mod" with "-" for an empty cell. Lines that begin with "//" are comments.
namespace quavix {

/// The fixed first line of a song file.
inline constexpr std::string_view SongHeader = "Quavix by Dastrel-204 file format";

/// Filter of the file dialogs.
inline constexpr std::string_view SongFilter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*";

/// Whether a text begins with another, letter case included.
bool AtStartOfString(std::string_view stringToUse, std::string_view textToLookFor);

/// A settings line's key in lower case: what stands before its first blank. A line without a blank gives all
/// but its last character.
std::string GetSettingName(std::string_view saveLine);

/// A settings line's value: what stands after its first blank, or the whole line without one. Logs the line.
std::string GetSettingValue(std::string_view saveLine, DebugLog& log);

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

/// Writes the whole song file, from the header to the last row, in pieces of some 64 KiB. Does not commit.
/// Returns the first error, with nothing written after it. Asks nothing and logs nothing, so that a song can
/// be written anywhere at any time.
std::error_code WriteSong(const SongFields& song, const EntryOptions& entry, const MusicList& list,
                          FileWriter& file);

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

/// Goes through a text line by line without copying it. Lines end at line feeds; one carriage return at a
/// line's end does not belong to it. A text that ends in a line feed has an empty last line. The text may be
/// written to through the lines, but must not change in length.
class TextLines {
  public:
    explicit TextLines(std::string& text) : text_(text) {}

    /// Whether there was another line; it is Line() then.
    bool Next() {
        if (next_ > text_.size())
            return false;
        const std::size_t end = text_.find('\n', next_);
        start_ = next_;
        const std::size_t lineEnd = end == std::string::npos ? text_.size() : end;
        next_ = lineEnd + 1;
        length_ = lineEnd - start_;
        if (length_ > 0 && text_[lineEnd - 1] == '\r')
            --length_;
        return true;
    }

    std::span<char> Line() { return {text_.data() + start_, length_}; }
    std::string_view Text() const { return {text_.data() + start_, length_}; }

    /// Where the next line starts; past the text's end behind the last one.
    std::size_t NextStart() const { return next_; }

  private:
    std::string& text_;
    std::size_t next_ = 0;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
};

}  // namespace quavix
