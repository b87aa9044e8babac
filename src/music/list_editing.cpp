// SPDX-License-Identifier: MIT
#include "music/list_editing.h"

#include <utility>

#include "music/selection.h"

namespace quavix {

ListEditing::ListEditing(MainFields& fields, MusicList& list, NoteEntry& entry, EditHistory& history,
                         std::function<void()> showPosition)
    : fields_(fields), list_(list), entry_(entry), history_(history), showPosition_(std::move(showPosition)) {
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
    if (!HasRealSelection(list_))
        return;
    const EditGesture clearing(history_, gesture);
    list_.SetText(GetSelectedIndex(list_), note, "");
}

void ListEditing::Command1_Click() {
    if (!HasRealSelection(list_))
        return;
    const EditGesture gesture(history_, "Erase line");
    const std::int32_t row = GetSelectedIndex(list_);
    list_.Remove(row);
    if (DoesIndexExist(list_, row))
        list_.Select(row);
}

void ListEditing::SilentLineButton_Click() {
    entry_.AddNote(-1, 0, fields_.NoteLengthCombo);
}

void ListEditing::UnselectButton_Click() {
    if (HasRealSelection(list_))
        list_.Unselect(GetSelectedIndex(list_));
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
