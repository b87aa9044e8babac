// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/watched.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"

namespace quavix {

/// What a document works with; all of it must outlive the document.
struct SongDocumentParts {
    SongFields& Song;
    ProgramState& State;
    MusicList& List;
    SongReader& Reader;
    SongWriter& Writer;
    Files& Disk;
    MessageBoxes& Boxes;
    /// Whether the song differs from what was last saved or loaded, as whoever keeps account of that says.
    const Watched<bool>& Modified;
    /// How that one is told what Modified has to become.
    std::function<void()> MarkSaved;
    std::function<void()> MarkModified;
};

/// The song as a document: the file it belongs to, and the care that nothing unsaved is lost.
///
/// All calls may show dialogs and boxes, in which other handlers run. Errors of reading and writing are
/// raised as the reader and the writer do.
class SongDocument {
  public:
    explicit SongDocument(SongDocumentParts parts);

    /// The file that the song was saved in or loaded from, by its full name. Empty while there is none, and
    /// when loading has left out or altered something: saving then asks for a name, so that the file isn't
    /// replaced unasked.
    const Watched<std::string>& FileName() const { return fileName_; }
    const Watched<bool>& Modified() const { return p_.Modified; }

    /// An empty song without a name, in the tempo and the other timing settings that the program starts with.
    /// Music that plays is stopped, as it is by loading.
    /// Asks first what is to become of unsaved changes; returns false, with nothing changed, when the user
    /// wants to keep the song after all.
    bool New();

    /// Saves the song in its file without a question, or as SaveAs() does where it has none. Returns whether
    /// it is saved.
    bool Save();

    /// Asks for a file name and saves the song under it, which becomes its name. Returns whether it is saved.
    bool SaveAs();

    /// Asks for a file and loads it, whatever becomes of the present song. Returns whether one was loaded, be
    /// it in part.
    bool Load();

    /// Loads a file whose name is known; the same otherwise.
    bool LoadFile(const std::string& fileName);

    /// Loads a copy of a song that was never saved, as a modified song of the name that it had. In part, it
    /// has no name. Nothing is said to be saved at any time.
    LoadResult Recover(const std::string& copy, const std::string& fileName);

    /// Whether the song may go. Asks when it has unsaved changes, and saves them where that is wanted; false
    /// when the user cancels, when saving came to nothing, and while the question stands open already.
    bool MayClose();

    /// Called when another song is there, or none: after New() and every load.
    std::function<void()> OnSongReplaced;

    /// True while a file is being loaded, as a handler that runs in between finds it.
    bool IsLoading() const { return loading_; }

  private:
    template <typename LoadSong>
    LoadResult WhileLoading(LoadSong load);
    bool Take(const LoadResult& loaded);
    void TellReplaced() const;
    void ResetTiming();

    SongDocumentParts p_;
    Watched<std::string> fileName_;
    bool loading_ = false;
    bool asking_ = false;
};

}  // namespace quavix
