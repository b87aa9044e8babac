// SPDX-License-Identifier: MIT
#include "music/music_line_text.h"

#include <cstddef>

#include "music/text.h"

namespace quavix {
namespace {

constexpr auto None = std::string_view::npos;

std::string_view EmptyForHyphen(std::string_view cell) {
    return cell == "-" ? std::string_view() : cell;
}

}  // namespace

bool IsMusicListStart(std::string_view line) {
    return LowerCase(line.substr(0, MusicListStart.size())) == LowerCase(MusicListStart);
}

MusicLineText SplitMusicLine(std::span<char> line) {
    const std::string_view text(line.data(), line.size());
    const std::size_t first = text.find(' ');
    if (first == None)
        return {};
    MusicLineText cells{.Length = text.substr(0, first)};
    const std::size_t second = text.find(' ', first + 1);
    if (second == None)
        return cells;
    std::size_t third = text.find(' ', second + 1);
    if (third == None)
        third = text.size();
    for (char& c : line.subspan(first + 1, third - first - 1)) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    cells.Note1 = EmptyForHyphen(text.substr(first + 1, second - first - 1));
    cells.Note2 = EmptyForHyphen(text.substr(second + 1, third - second - 1));
    if (third < text.size())
        cells.Mod = EmptyForHyphen(text.substr(third + 1));
    cells.Complete = true;
    return cells;
}

}  // namespace quavix
