// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/file_picker.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"

namespace quavix {

/// Saves the song in a file that the user chooses.
class SongWriter {
  public:
    SongWriter(const SongFields& song, const EntryOptions& entry, const MusicList& list, Files& files,
               MessageBoxes& boxes, FilePicker& picker, DebugLog& log)
        : song_(song), entry_(entry), list_(list), files_(files), boxes_(boxes), picker_(picker), log_(log) {}

    /// Asks for a file name and writes the file. An existing file is replaced after a question, in one step,
    /// so that it always holds the old song or the new one. If the file can't be opened, shows a box; if
    /// writing fails (disk full), keeps the old file and raises the classic file error. Returns the file's
    /// name if the song was saved.
    std::optional<std::string> SaveMusic();

    /// Same for a known name, without any question. Returns true if the song was saved.
    bool SaveAs(const std::string& fileName);

  private:
    bool MayReplace(const std::string& fileName);

    const SongFields& song_;
    const EntryOptions& entry_;
    const MusicList& list_;
    Files& files_;
    MessageBoxes& boxes_;
    FilePicker& picker_;
    DebugLog& log_;
};

}  // namespace quavix
