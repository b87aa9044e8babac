// SPDX-License-Identifier: MIT
#include "songfile/song_text.h"

#include "music/text.h"

namespace quavix {

bool AtStartOfString(std::string_view stringToUse, std::string_view textToLookFor) {
    return stringToUse.starts_with(textToLookFor);
}

std::string GetSettingName(std::string_view saveLine) {
    if (saveLine.empty())
        return {};
    const std::size_t blank = saveLine.find(' ');
    return LowerCase(saveLine.substr(0, blank == std::string_view::npos ? saveLine.size() - 1 : blank));
}

std::string GetSettingValue(std::string_view saveLine, DebugLog& log) {
    log.Text("GetSettingValue(\"{}\")", saveLine);
    const std::size_t blank = saveLine.find(' ');
    return std::string(blank == std::string_view::npos ? saveLine : saveLine.substr(blank + 1));
}

}  // namespace quavix
