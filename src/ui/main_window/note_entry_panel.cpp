// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_note_entry_panel.h"

namespace quavix {

QWidget* MakeNoteEntryPanel(EntryOptions& entry, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::NoteEntryPanel ui{};
    ui.setupUi(panel);
    BindCheck(ui.NoteClickPlayCheck, entry.NoteClickPlayCheck, handlers);
    BindCheck(ui.NoteClickAddCheck, entry.NoteClickAddCheck, handlers);
    BindOptions(ui.AddNote1Option, entry.AddNote1Option, ui.AddNote2Option, entry.AddNote2Option, handlers);
    BindCheck(ui.NoteReplaceCheck, entry.NoteReplaceCheck, handlers);
    BindCheck(ui.NoteLengthReplaceCheck, entry.NoteLengthReplaceCheck, handlers);
    BindCombo(ui.NoteLengthCombo, entry.NoteLengthCombo, handlers);
    BindCheck(ui.ModDottedCheck, entry.ModDottedCheck, handlers);
    BindCheck(ui.ModTripletCheck, entry.ModTripletCheck, handlers);
    BindEnabled(ui.AddNote1Option, entry.NoteClickAddCheck);
    BindEnabled(ui.AddNote2Option, entry.NoteClickAddCheck);
    BindEnabled(ui.NoteReplaceCheck, entry.NoteClickAddCheck);
    BindEnabled(ui.NoteLengthReplaceCheck, entry.NoteLengthReplaceCheckEnabled);
    return panel;
}

}  // namespace quavix
