// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "music/dotted_triplet_boxes.h"
#include "music/edit_history.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "music/note_entry.h"

namespace quavix {

/// The commands that change the selected line, and which options of note entry are available. Where several
/// lines are selected, clearing and erasing mean all of them. The commands do nothing without a really
/// selected line, except the blank line. Watches the options for as long as the fields live, and must live as
/// long.
class ListEditing {
  public:
    /// `showPosition` brings the position display up to date with the selection.
    ListEditing(EntryOptions& options, const ProgramState& state, MusicList& list, NoteEntry& entry,
                DottedTripletBoxes& boxes, EditHistory& history, std::function<void()> showPosition);
    ListEditing(const ListEditing&) = delete;
    ListEditing& operator=(const ListEditing&) = delete;

    void ClearNote1Button_Click();
    void ClearNote2Button_Click();
    /// "Erase whole line": the line that comes to stand in its place is selected, so that it can be erased
    /// next; behind the last line, none is.
    void Command1_Click();
    /// "Blank line": enters a line without a note, see NoteEntry.
    void SilentLineButton_Click();
    void UnselectButton_Click();
    /// The user has selected another line, or several or none, without playing one: the Dotted and Triplet
    /// boxes and the position go with it.
    void FollowSelection();

    /// Which options of note entry are enabled.
    void NoteClickAddCheck_Click();
    void NoteReplaceCheck_Click();

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
