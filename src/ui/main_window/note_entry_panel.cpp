// SPDX-License-Identifier: MIT
#include "ui/main_window/note_entry_panel.h"

#include "ui/main_window/texts.h"
#include "ui/widgets/binding.h"
#include "ui_note_entry_panel.h"

namespace quavix {

NoteEntryPanel::NoteEntryPanel(EntryOptions& entry, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::NoteEntryPanel>()) {
    ui_->setupUi(this);
    for (const char* length : text::NoteLengths)
        ui_->NoteLengthCombo->addItem(length);
    ui_->NoteLengthCombo->setToolTip(text::NoteLengthTip);
    ui_->lblNoteLength->setToolTip(text::NoteLengthTip);

    BindCheck(ui_->NoteClickPlayCheck, entry.NoteClickPlayCheck, handlers);
    BindCheck(ui_->NoteClickAddCheck, entry.NoteClickAddCheck, handlers);
    BindOptions(ui_->AddNote1Option, entry.AddNote1Option, ui_->AddNote2Option, entry.AddNote2Option,
                handlers);
    BindCheck(ui_->NoteReplaceCheck, entry.NoteReplaceCheck, handlers);
    BindCheck(ui_->NoteLengthReplaceCheck, entry.NoteLengthReplaceCheck, handlers);
    BindCombo(ui_->NoteLengthCombo, entry.NoteLengthCombo, handlers);
    BindCheck(ui_->ModDottedCheck, entry.ModDottedCheck, handlers);
    BindCheck(ui_->ModTripletCheck, entry.ModTripletCheck, handlers);
    BindEnabled(ui_->AddNote1Option, entry.AddNote1OptionEnabled);
    BindEnabled(ui_->AddNote2Option, entry.AddNote2OptionEnabled);
    BindEnabled(ui_->NoteReplaceCheck, entry.NoteReplaceCheckEnabled);
    BindEnabled(ui_->NoteLengthReplaceCheck, entry.NoteLengthReplaceCheckEnabled);
}

NoteEntryPanel::~NoteEntryPanel() = default;

}  // namespace quavix
