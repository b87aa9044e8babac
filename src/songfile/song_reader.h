// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/file_picker.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"
#include "songfile/loading_view.h"

namespace quavix {

class TextLines;

/// The result of loading a song.
struct LoadResult {
    /// True if the file's music was loaded, even in part.
    bool Loaded = false;
    /// True if the song holds everything in the file: loading was not stopped, no line was malformed, the
    /// file was in the program's format and not newer than this version, and its text needed no repair. Only
    /// then can the song be saved in the same file without loss.
    bool Whole = false;
    std::string FileName;

    explicit operator bool() const { return Loaded; }
};

/// Loads songs from files into the main window's settings and the music list.
class SongReader {
  public:
    SongReader(SongFields& song, EntryOptions& entry, MusicList& list, Files& files, MessageBoxes& boxes,
               FilePicker& picker, LoadingView& view, DebugLog& log)
        : song_(song),
          entry_(entry),
          list_(list),
          files_(files),
          boxes_(boxes),
          picker_(picker),
          view_(view),
          log_(log) {}

    /// Asks for a file name and loads the file; shows a box if it does not exist.
    LoadResult LoadMusic();

    /// Loads a file. Replaces the list, every setting that the file names, and always the beats per bar. If
    /// the file can't be read, raises the classic file error and changes nothing. A number too large for its
    /// setting raises Overflow, a wrong text for a switch TypeMismatch: earlier settings are then replaced,
    /// but not the list. The user may stop a long load: during reading, nothing changes; later, the lines
    /// loaded so far stay. The list is consistent whenever handlers can run.
    LoadResult ActuallyLoadMusic(const std::string& fileToLoad);

    /// Called when a file has been read, before the song is replaced. Must be set before a load.
    std::function<void()> OnReplace;

  private:
    bool AskWhetherToLoadAnyway();
    /// Loads settings up to the first music line or the end of the text. Returns true if the file needs no
    /// newer version of the program.
    bool LoadSettings(TextLines& lines);
    /// Returns true, after telling the user, if the line names a newer version of the program.
    bool IsOfNewerRevision(std::string_view line);
    /// Returns true if all lines were loaded unchanged.
    bool LoadLines(TextLines& lines, std::size_t textSize);
    BoxAnswer LoadMusicListLineError(std::string_view line);

    SongFields& song_;
    EntryOptions& entry_;
    MusicList& list_;
    Files& files_;
    MessageBoxes& boxes_;
    FilePicker& picker_;
    LoadingView& view_;
    DebugLog& log_;
};

}  // namespace quavix
