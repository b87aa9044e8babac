// SPDX-License-Identifier: MIT
#include "music/list_editing.h"

#include <utility>

#include "music/selection.h"

namespace quavix {

ListEditing::ListEditing(EntryOptions& options, const ProgramState& state, MusicList& list, NoteEntry& entry,
                         DottedTripletBoxes& boxes, EditHistory& history, std::function<void()> showPosition)
    : options_(options),
      state_(state),
      list_(list),
      entry_(entry),
      boxes_(boxes),
      history_(history),
      showPosition_(std::move(showPosition)) {
    options_.NoteReplaceCheck.Watch(
        [this](bool replaces) { options_.NoteLengthReplaceCheckEnabled = replaces; });
    options_.NoteClickAddCheck.Watch(
        [this](bool adds) { options_.NoteLengthReplaceCheckEnabled = adds && options_.NoteReplaceCheck; });
    // Option buttons of one group: selecting one clears the other.
    options_.AddNote1Option.Watch([this](bool selected) {
        if (selected)
            options_.AddNote2Option = false;
    });
    options_.AddNote2Option.Watch([this](bool selected) {
        if (selected)
            options_.AddNote1Option = false;
    });
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
    entry_.AddNote(-1, 0, options_.NoteLengthCombo);
    ShowPositionUnlessPlaying();
}

void ListEditing::UnselectButton_Click() {
    if (HasRealSelection(list_))
        list_.UnselectAll();
    showPosition_();
}

void ListEditing::FollowSelection() {
    boxes_.UpdateModButtons();
    ShowPositionUnlessPlaying();
}

/// Updates the position labels, unless the playing music uses them.
void ListEditing::ShowPositionUnlessPlaying() {
    if (!state_.MusicIsPlaying)
        showPosition_();
}

}  // namespace quavix
