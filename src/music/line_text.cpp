// SPDX-License-Identifier: MIT
#include "music/line_text.h"

#include "music/music_line_text.h"
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
    std::string text;
    for (const std::int32_t row : rows) {
        AppendLineText(text, list, row);
        text += '\n';
    }
    return text;
}

LinesOfText ReadLines(std::string text) {
    EndLinesInLineFeeds(text);
    LinesOfText read;
    TextLines lines(text);
    while (lines.Next()) {
        const std::string_view line = lines.Text();
        if (line.find_first_not_of(" \t") == std::string_view::npos || line.starts_with("//"))
            continue;
        const MusicLineText cells = SplitMusicLine(lines.Line());
        if (!cells.Complete) {
            ++read.Rejected;
            continue;
        }
        read.Lines.push_back({std::string(cells.Length), std::string(cells.Note1), std::string(cells.Note2),
                              std::string(cells.Mod)});
    }
    return read;
}

}  // namespace quavix
