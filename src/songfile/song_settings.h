// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "music/main_fields.h"
#include "shell/debug_log.h"

namespace quavix {

/// Applies the settings lines of a song file to the main window's fields.
class SongSettings {
  public:
    SongSettings(SongFields& song, EntryOptions& entry, DebugLog& log)
        : song_(song), entry_(entry), log_(log) {}

    /// Sets the beats per bar that a song starts with: 4.
    void ResetTimeSig();

    /// Applies one line. Keys match in any letter case; a line with an unknown key is ignored. Numbers are
    /// read leniently; a number out of range of its setting's type raises Overflow, and the setting stays.
    /// Sliders take the nearest possible value; the note-length list ignores impossible values.
    void Apply(std::string_view line);

  private:
    void ApplyValue(std::string_view name, const std::string& value);

    SongFields& song_;
    EntryOptions& entry_;
    DebugLog& log_;
};

}  // namespace quavix
