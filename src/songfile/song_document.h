// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "music/edit_history.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/watched.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"

namespace quavix {

/// Dependencies of SongDocument. All must outlive it.
struct SongDocumentParts {
    SongFields& Song;
    ProgramState& State;
    MusicList& List;
    SongReader& Reader;
    SongWriter& Writer;
    Files& Disk;
    MessageBoxes& Boxes;
    EditHistory& History;
    /// Called after the song was replaced: after New() and every load.
    std::function<void()> SongReplaced;
};

/// The song as a document: its file, and the protection of unsaved changes.
///
/// All calls may show dialogs and boxes, in which other handlers run. Errors of reading and writing are
/// raised as by the reader and the writer.
class SongDocument {
  public:
    explicit SongDocument(SongDocumentParts parts);

    /// Returns the full name of the song's file. Empty if there is none, and if loading has left out or
    /// altered something: saving then asks for a name, so that the file is not overwritten without a
    /// question.
    const Watched<std::string>& FileName() const { return fileName_; }
    const Watched<bool>& Modified() const { return p_.History.Modified; }

    /// Asks about unsaved changes, then makes an empty song without a name, with the default tempo and
    /// timing. Stops playing music, as loading does. Returns false, with nothing changed, if the user keeps
    /// the song.
    bool New();

    /// Saves the song in its file without a question, or like SaveAs() if it has none. Returns true if it was
    /// saved.
    bool Save();

    /// Asks for a file name and saves the song under it, which becomes its name. Returns true on success.
    bool SaveAs();

    /// Asks for a file and loads it without asking about the present song. Returns true if a song was loaded,
    /// even in part.
    bool Load();

    /// Same as Load() for a known file name.
    bool LoadFile(const std::string& fileName);

    /// Loads a recovery copy as a modified song named `fileName`, or without a name if loaded only in part.
    /// The song is never marked as saved meanwhile.
    LoadResult Recover(const std::string& copy, const std::string& fileName);

    /// Returns true if the song may be closed. Asks about unsaved changes, and saves them on request. Returns
    /// false if the user cancels, if saving fails, and while the question is already open.
    bool MayClose();

    /// Returns true while a file is being loaded, for handlers that run meanwhile.
    bool IsLoading() const { return loading_; }

  private:
    bool Take(const LoadResult& loaded);

    SongDocumentParts p_;
    Watched<std::string> fileName_;
    bool loading_ = false;
    bool asking_ = false;
};

}  // namespace quavix
