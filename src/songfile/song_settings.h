// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "music/main_fields.h"
#include "shell/debug_log.h"

namespace quavix {

/// Brings the settings lines of a song file into the main window's fields.
class SongSettings {
  public:
    SongSettings(SongFields& song, EntryOptions& entry, DebugLog& log)
        : song_(song), entry_(entry), log_(log) {}

    /// What a song starts from: 4 beats per bar.
    void ResetTimeSig();

    /// Applies one line; keys count in any letter case, and a line whose key is unknown is ignored. Numbers
    /// are read leniently; one that its setting's type can't hold raises Overflow, and the setting stays as
    /// it was. Sliders take the nearest value that they have, the note-length list ignores what it doesn't
    /// have.
    void Apply(std::string_view line);

  private:
    void ApplyValue(std::string_view name, const std::string& value);

    SongFields& song_;
    EntryOptions& entry_;
    DebugLog& log_;
};

}  // namespace quavix
