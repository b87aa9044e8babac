// SPDX-License-Identifier: MIT
#include "music/line_text.h"

#include <algorithm>
#include <string_view>

#include "music/lengths.h"
#include "music/music_line_text.h"
#include "music/notes.h"
#include "music/text.h"
#include "music/text_lines.h"

namespace quavix {
namespace {

/// Carriage returns that end a line on their own become line feeds.
void EndLinesInLineFeeds(std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))
            text[i] = '\n';
    }
}

bool IsLength(std::string_view text) {
    std::string noMod;
    return GetEquivalentLength(text, noMod) > 0;
}

/// A note name and an octave as the keyboard enters them, "C#4" to "B256".
bool IsNoteOrNone(std::string_view text) {
    constexpr std::size_t MostDigits = 3;
    if (text.empty())
        return true;
    const std::size_t name = text.substr(0, 2).ends_with('#') ? 2 : 1;
    const std::string_view octave = text.substr(name);
    const std::int16_t note = FindNoteNum(text.substr(0, name));
    return note >= 0 && NoteNumToLetter(note) == text.substr(0, name) && !octave.empty() &&
           octave.size() <= MostDigits && octave.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsMod(std::string_view text) {
    const std::string lower = LowerCase(text);
    return lower.empty() || lower == "dot" || lower == "tri";
}

/// Whether the cells are such as the program itself writes, and not those of a letter to a friend.
bool IsMusic(std::string_view length, std::string_view note1, std::string_view note2, std::string_view mod) {
    return IsLength(length) && IsNoteOrNone(note1) && IsNoteOrNone(note2) && IsMod(mod);
}

std::span<char> WithoutBlanksAtEnd(std::span<char> line) {
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t'))
        line = line.first(line.size() - 1);
    return line;
}

}  // namespace

void AppendLineText(std::string& text, const MusicList& list, std::int32_t row) {
    text += list.Text(row, Cell::Length);
    for (const Cell cell : {Cell::Note1, Cell::Note2, Cell::Mod}) {
        const std::string_view content = list.Text(row, cell);
        text += ' ';
        text += content.empty() ? "-" : content;
    }
}

std::string TextOfLines(const MusicList& list, std::span<const std::int32_t> rows) {
    const bool allMusic = std::all_of(rows.begin(), rows.end(), [&list](std::int32_t row) {
        return IsMusic(list.Text(row, Cell::Length), list.Text(row, Cell::Note1), list.Text(row, Cell::Note2),
                       list.Text(row, Cell::Mod));
    });
    std::string text;
    if (!allMusic) {
        text += MusicListStart;
        text += '\n';
    }
    for (const std::int32_t row : rows) {
        AppendLineText(text, list, row);
        text += '\n';
    }
    return text;
}

LinesOfText ReadLines(std::string text) {
    EndLinesInLineFeeds(text);
    const bool asTheyAre = IsMusicListStart(text);
    LinesOfText read;
    bool inList = false;
    TextLines lines(text);
    while (lines.Next()) {
        const std::string_view line = lines.Text();
        if (!inList && IsMusicListStart(line)) {
            inList = true;
            read = {};
            continue;
        }
        if (line.find_first_not_of(" \t") == std::string_view::npos || line.starts_with("//"))
            continue;
        const MusicLineText cells =
            SplitMusicLine(asTheyAre ? lines.Line() : WithoutBlanksAtEnd(lines.Line()));
        if (!cells.Complete || !(asTheyAre || IsMusic(cells.Length, cells.Note1, cells.Note2, cells.Mod))) {
            ++read.Rejected;
            continue;
        }
        read.Lines.push_back({std::string(cells.Length), std::string(cells.Note1), std::string(cells.Note2),
                              std::string(cells.Mod)});
    }
    return read;
}

}  // namespace quavix
