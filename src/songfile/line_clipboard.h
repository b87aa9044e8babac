// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "music/edit_history.h"
#include "music/music_list.h"
#include "ports/clipboard.h"
#include "shell/watched.h"
#include "songfile/song_format.h"

namespace quavix {

/// The clipboard commands for selected lines. Without a selection they do nothing, but pasting appends. The
/// clipboard holds lines as song text, for other copies of the program and for editors. The list must outlive
/// it.
class LineClipboard : private MusicListObserver {
  public:
    /// `showPosition` updates the position display to the selection; called after each change.
    LineClipboard(MusicList& list, Clipboard& clipboard, EditHistory& history,
                  std::function<void()> showPosition);
    ~LineClipboard() override;

    /// True if any line is selected, so that the commands for selected lines have an effect.
    Watched<bool> LinesSelected;

    struct PasteResult {
        std::size_t Pasted = 0;
        /// Number of clipboard lines that are no music.
        std::size_t Rejected = 0;
    };

    void CopyLines();
    void CutLines();
    /// Inserts the clipboard's lines at the note-entry position: before the first selected line, which stays
    /// selected, or at the end. A clipboard without music changes nothing.
    PasteResult PasteLines();
    /// Inserts copies after the last selected line, and selects the copies instead.
    void DuplicateLines();
    /// Removes the selected lines. Selects the line after the last of them, if there is one.
    void EraseLines();

  private:
    void SelectionChanged() override;
    void Reset() override { SelectionChanged(); }
    void Remove(const char* verb);
    void InsertBlock(std::int32_t row, const std::vector<MusicLine>& lines);

    MusicList& list_;
    Clipboard& clipboard_;
    EditHistory& history_;
    std::function<void()> showPosition_;
};

}  // namespace quavix
