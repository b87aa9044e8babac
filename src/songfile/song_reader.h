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
#include "songfile/song_settings.h"

namespace quavix {

class TextLines;

/// What came of loading a song.
struct LoadResult {
    /// The file's music was loaded, be it in part.
    bool Loaded = false;
    /// The song says all that the file said: the load wasn't stopped, no line was malformed, the file was in
    /// the program's format, as old as this version or older, and its text needed no repair. Only then
    /// nothing is lost when the song is saved in the file again.
    bool Whole = false;
    std::string FileName;

    explicit operator bool() const { return Loaded; }
};

/// Loads songs from files into the main window's settings and the music list.
class SongReader {
  public:
    SongReader(SongFields& song, EntryOptions& entry, MusicList& list, Files& files, MessageBoxes& boxes,
               FilePicker& picker, LoadingView& view, DebugLog& log)
        : list_(list),
          files_(files),
          boxes_(boxes),
          picker_(picker),
          view_(view),
          log_(log),
          settings_(song, entry, log) {}

    /// Asks for a file name and loads the file; one that doesn't exist is told in a box.
    LoadResult LoadMusic();

    /// Loads a file. Every setting that it names, and the beats per bar in any case, and the whole list are
    /// replaced. A file that can't be read raises the classic file error and changes nothing. A number too
    /// large for its setting raises Overflow, a text for a switch TypeMismatch: the settings before it have
    /// been taken then, the list stays as it was. The user may stop a long load: while the file is read,
    /// nothing changes; later the lines loaded so far stay. The list is whole whenever handlers can run.
    LoadResult ActuallyLoadMusic(const std::string& fileToLoad);

    /// Runs when a file has been read and is about to replace the song.
    std::function<void()> OnReplace;

  private:
    LoadResult LoadFile(const std::string& fileName);
    bool AskWhetherToLoadAnyway();
    /// Ends before the first music line, or at the end of the text. Returns whether this version of the
    /// program knows all that the file may say.
    bool LoadSettings(TextLines& lines);
    /// Tells that the line gives a newer version of the program as the file's origin; returns whether it
    /// does.
    bool IsOfNewerRevision(std::string_view line);
    /// Returns whether all of them were loaded as they stand.
    bool LoadLines(TextLines& lines, std::size_t textSize);
    BoxAnswer LoadMusicListLineError(std::string_view line);

    MusicList& list_;
    Files& files_;
    MessageBoxes& boxes_;
    FilePicker& picker_;
    LoadingView& view_;
    DebugLog& log_;
    SongSettings settings_;
};

}  // namespace quavix
