// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "music/dotted_triplet_boxes.h"
#include "music/edit_history.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "music/note_entry.h"

namespace quavix {

/// The commands that change the selected line, and the links between entry options. Clearing and erasing
/// apply to all selected lines. Without a real selection only the blank line has an effect. Watches the
/// options during the whole lifetime of the fields, and must live as long.
class ListEditing {
  public:
    /// `showPosition` updates the position display to the selection.
    ListEditing(EntryOptions& options, const ProgramState& state, MusicList& list, NoteEntry& entry,
                DottedTripletBoxes& boxes, EditHistory& history, std::function<void()> showPosition);
    ListEditing(const ListEditing&) = delete;
    ListEditing& operator=(const ListEditing&) = delete;

    void ClearNote1Button_Click();
    void ClearNote2Button_Click();
    /// "Erase whole line": selects the line that takes its place, so that it can be erased next; after the
    /// last line, none.
    void Command1_Click();
    /// "Blank line": enters a line without a note, see NoteEntry.
    void SilentLineButton_Click();
    void UnselectButton_Click();
    /// Updates the Dotted and Triplet boxes and the position after the user has changed the selection without
    /// playing a line.
    void FollowSelection();

  private:
    void ClearNote(Cell note, const char* gesture);
    void ShowPositionUnlessPlaying();

    EntryOptions& options_;
    const ProgramState& state_;
    MusicList& list_;
    NoteEntry& entry_;
    DottedTripletBoxes& boxes_;
    EditHistory& history_;
    std::function<void()> showPosition_;
};

}  // namespace quavix
