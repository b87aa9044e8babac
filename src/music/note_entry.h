// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/edit_history.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "shell/debug_log.h"

namespace quavix {

/// Enters notes into the music list.
class NoteEntry {
  public:
    NoteEntry(EntryOptions& entry, MusicList& list, EditHistory& history, DebugLog& log)
        : entry_(entry), list_(list), history_(history), log_(log) {}

    /// Enters a note according to the selection and the editing options: as a new line before the selected
    /// one (without one, at the end), or into the selected line. Then moves the selection so that the next
    /// note follows. Note number -1 means no note: the line is silent, or keeps its notes. Other numbers
    /// outside 0..11 are entered as "Err" and the number. `octave` is written unchanged. `lengthIndex` is an
    /// index of the note-length list.
    void AddNote(std::int32_t noteNum, std::int32_t octave, std::int32_t lengthIndex);

  private:
    std::int32_t FindInsertPoint();
    bool DecideToReplace(std::int32_t insertPoint);
    void InsertLine(std::int32_t insertPoint, const std::string& length);
    void WriteNote(std::int32_t row, const std::string& noteLetter, std::int32_t octave);
    void WriteLength(std::int32_t row, const std::string& length);
    void MoveSelection(std::int32_t insertPoint);
    const char* Mod() const;

    EntryOptions& entry_;
    MusicList& list_;
    EditHistory& history_;
    DebugLog& log_;
};

}  // namespace quavix
