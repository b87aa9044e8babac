// SPDX-License-Identifier: MIT
#include "music/list_editing.h"

#include <utility>

#include "music/selection.h"

namespace quavix {

ListEditing::ListEditing(MainFields& fields, MusicList& list, NoteEntry& entry, ModButtons& mods,
                         EditHistory& history, std::function<void()> showPosition)
    : fields_(fields),
      list_(list),
      entry_(entry),
      mods_(mods),
      history_(history),
      showPosition_(std::move(showPosition)) {
    fields_.NoteClickAddCheck.Watch([this](bool) { NoteClickAddCheck_Click(); });
    fields_.NoteReplaceCheck.Watch([this](bool) { NoteReplaceCheck_Click(); });
    // Option buttons of one group: selecting one clears the other.
    fields_.AddNote1Option.Watch([this](bool selected) {
        if (selected)
            fields_.AddNote2Option = false;
    });
    fields_.AddNote2Option.Watch([this](bool selected) {
        if (selected)
            fields_.AddNote1Option = false;
    });
    NoteClickAddCheck_Click();
}

void ListEditing::ClearNote1Button_Click() {
    ClearNote(Cell::Note1, "Clear Note 1");
}

void ListEditing::ClearNote2Button_Click() {
    ClearNote(Cell::Note2, "Clear Note 2");
}

void ListEditing::ClearNote(Cell note, const char* gesture) {
    const EditGesture clearing(history_, gesture);
    SetSelectedLines(list_, note, "");
}

void ListEditing::Command1_Click() {
    const std::vector<std::int32_t> rows = ReallySelectedRows(list_);
    if (rows.empty())
        return;
    const EditGesture gesture(history_, rows.size() == 1 ? "Erase line" : "Erase lines");
    RemoveAndSelectNext(list_, rows);
    ShowPositionUnlessPlaying();
}

void ListEditing::SilentLineButton_Click() {
    entry_.AddNote(-1, 0, fields_.NoteLengthCombo);
    ShowPositionUnlessPlaying();
}

void ListEditing::UnselectButton_Click() {
    if (HasRealSelection(list_))
        list_.UnselectAll();
    showPosition_();
}

void ListEditing::FollowSelection() {
    mods_.UpdateModButtons();
    ShowPositionUnlessPlaying();
}

/// The labels belong to the music while it plays.
void ListEditing::ShowPositionUnlessPlaying() {
    if (!fields_.MusicIsPlaying)
        showPosition_();
}

void ListEditing::NoteClickAddCheck_Click() {
    const bool adds = fields_.NoteClickAddCheck;
    fields_.AddNote1OptionEnabled = adds;
    fields_.AddNote2OptionEnabled = adds;
    fields_.NoteReplaceCheckEnabled = adds;
    if (adds)
        NoteReplaceCheck_Click();
    else
        fields_.NoteLengthReplaceCheckEnabled = false;
}

void ListEditing::NoteReplaceCheck_Click() {
    fields_.NoteLengthReplaceCheckEnabled = fields_.NoteReplaceCheck.Get();
}

}  // namespace quavix
