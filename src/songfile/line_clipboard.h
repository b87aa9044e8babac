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

/// The commands for one or several selected lines; with none, they do nothing (pasting appends). The
/// clipboard holds lines as song text, so that they go between copies of the program and into an editor.
/// The list must outlive it.
class LineClipboard : private MusicListObserver {
  public:
    /// `showPosition` brings the position display up to date with the selection; called after each change.
    LineClipboard(MusicList& list, Clipboard& clipboard, EditHistory& history,
                  std::function<void()> showPosition);
    ~LineClipboard() override;
    LineClipboard(const LineClipboard&) = delete;
    LineClipboard& operator=(const LineClipboard&) = delete;

    /// Some line is selected, so that the commands for selected lines do something.
    Watched<bool> LinesSelected;

    struct PasteResult {
        std::size_t Pasted = 0;
        /// Lines of the clipboard that are no music.
        std::size_t Rejected = 0;
    };

    void CopyLines();
    void CutLines();
    /// Inserts the clipboard's lines as notes are entered: before the first selected line, which stays
    /// selected, or at the end. A clipboard without music changes nothing.
    PasteResult PasteLines();
    /// Inserts copies behind the last selected line, and selects them in place of the lines.
    void DuplicateLines();
    /// Removes the selected lines. The line behind the last of them is selected, if there is one.
    void EraseLines();

  private:
    void SelectionChanged() override;
    void Reset() override { SelectionChanged(); }
    void Remove(const std::vector<std::int32_t>& rows);
    void InsertBlock(std::int32_t row, const std::vector<MusicLine>& lines);

    MusicList& list_;
    Clipboard& clipboard_;
    EditHistory& history_;
    std::function<void()> showPosition_;
};

}  // namespace quavix
