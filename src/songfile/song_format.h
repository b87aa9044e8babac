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

// The text form of a song: a header line, settings lines "Key Value", a line "MUSICLISTSTART", and music
// lines "Length Note1 Note2 Mod" with "-" for an empty cell. Lines that begin with "//" are comments.
namespace quavix {

/// The fixed first line of a song file.
inline constexpr std::string_view SongHeader = "Quavix by Dastrel-204 file format";

/// File types in the file dialogs.
inline constexpr std::string_view SongFilter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*";

/// Returns true if a text begins with another, respecting letter case.
bool AtStartOfString(std::string_view stringToUse, std::string_view textToLookFor);

/// Returns a settings line's key in lower case: the text before its first blank; without a blank, all but the
/// last character.
std::string GetSettingName(std::string_view saveLine);

/// Returns a settings line's value: the text after its first blank, or else the whole line. Logs the line.
std::string GetSettingValue(std::string_view saveLine, DebugLog& log);

/// The line of a song file after which the music begins.
inline constexpr std::string_view MusicListStart = "MUSICLISTSTART";

/// Returns true if a line begins with MusicListStart, in any letter case.
bool IsMusicListStart(std::string_view line);

/// The cells of a song file's music line, as views into the line.
struct MusicLineText {
    std::string_view Length{};
    std::string_view Note1{};
    std::string_view Note2{};
    std::string_view Mod{};
    /// True if the line has a length and two notes. Otherwise at most Length is set.
    bool Complete = false;
};

/// Splits a line at its first three blanks; "-" becomes an empty cell. Changes a complete line's notes to
/// upper case in place; an incomplete line stays unchanged.
MusicLineText SplitMusicLine(std::span<char> line);

/// Writes the whole song file, from the header to the last row, in pieces of about 64 KiB. Does not commit.
/// Returns the first error, and writes nothing after it. Neither asks nor logs, so it can be called at any
/// time.
std::error_code WriteSong(const SongFields& song, const EntryOptions& entry, const MusicList& list,
                          FileWriter& file);

/// Appends a row in the form of a song file, "Quarter C4 - Dot" with "-" for an empty cell, without a line
/// end.
void AppendLineText(std::string& text, const MusicList& list, std::int32_t row);

/// Returns rows as song text, each with a line feed. If a row holds unusual text ("Dot and more", from a
/// hand-written song file), puts "MUSICLISTSTART" in front, so that ReadLines() accepts all rows unchanged.
std::string TextOfLines(const MusicList& list, std::span<const std::int32_t> rows);

/// The music in a text.
struct LinesOfText {
    std::vector<MusicLine> Lines{};
    /// Number of skipped lines that are no music.
    std::size_t Rejected = 0;
};

/// Reads the music in a text: lines "Length Note1 Note2" or "Length Note1 Note2 Mod" with a length as written
/// ("Whole", in this letter case), notes ("C#4", in any letter case) or "-", and "Dot", "Tri" (in any letter
/// case, which is kept), "-" or nothing. Lines end in line feeds, carriage returns or both; blank lines and
/// lines that begin with "//" are skipped. Text before a line "MUSICLISTSTART", as in a song file, is skipped
/// and not counted as rejected; if a text begins with this line, its music is read as in a song file, with
/// any text in the cells.
LinesOfText ReadLines(std::string text);

/// Iterates over the lines of a text without copying them. Lines end at line feeds; one carriage return at a
/// line's end is not part of it. A text that ends in a line feed has an empty last line. The lines may be
/// written to, but not changed in length.
class TextLines {
  public:
    explicit TextLines(std::string& text) : text_(text) {}

    /// Moves to the next line, Line(). Returns false if there is none.
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

    /// Returns the start of the next line; past the text's end behind the last one.
    std::size_t NextStart() const { return next_; }

  private:
    std::string& text_;
    std::size_t next_ = 0;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
};

}  // namespace quavix
