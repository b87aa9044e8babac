// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "shell/debug_log.h"

namespace quavix {

/// The fixed first line of a song file.
inline constexpr std::string_view SongHeader = "Quavix by Dastrel-204 file format";

/// Whether a text begins with another, letter case included.
bool AtStartOfString(std::string_view stringToUse, std::string_view textToLookFor);

/// A settings line's key in lower case: what stands before its first blank. A line without a blank gives all
/// but its last character.
std::string GetSettingName(std::string_view saveLine);

/// A settings line's value: what stands after its first blank, or the whole line without one. Logs the line.
std::string GetSettingValue(std::string_view saveLine, DebugLog& log);

}  // namespace quavix
