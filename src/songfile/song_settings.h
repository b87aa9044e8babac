// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "music/main_fields.h"
#include "shell/debug_log.h"

namespace quavix {

/// Applies a settings line of a song file to the main window's fields. Keys match in any letter case; a line
/// with an unknown key is ignored. Numbers are read leniently; a number out of range of its setting's type
/// raises Overflow, and the setting stays. Sliders take the nearest possible value; the note-length list
/// ignores impossible values.
void ApplySetting(std::string_view line, SongFields& song, EntryOptions& entry, DebugLog& log);

}  // namespace quavix
