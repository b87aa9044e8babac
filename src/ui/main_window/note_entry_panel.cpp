// SPDX-License-Identifier: MIT
#include "ui/main_window/note_entry_panel.h"

#include "ui/main_window/texts.h"
#include "ui/widgets/binding.h"
#include "ui_note_entry_panel.h"

namespace quavix {

NoteEntryPanel::NoteEntryPanel(MainFields& fields, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::NoteEntryPanel>()) {
    ui_->setupUi(this);
    for (const char* length : text::NoteLengths)
        ui_->NoteLengthCombo->addItem(length);
    ui_->NoteLengthCombo->setToolTip(text::NoteLengthTip);
    ui_->lblNoteLength->setToolTip(text::NoteLengthTip);

    BindCheck(ui_->NoteClickPlayCheck, fields.NoteClickPlayCheck, handlers);
    BindCheck(ui_->NoteClickAddCheck, fields.NoteClickAddCheck, handlers);
    BindOptions(ui_->AddNote1Option, fields.AddNote1Option, ui_->AddNote2Option, fields.AddNote2Option,
                handlers);
    BindCheck(ui_->NoteReplaceCheck, fields.NoteReplaceCheck, handlers);
    BindCheck(ui_->NoteLengthReplaceCheck, fields.NoteLengthReplaceCheck, handlers);
    BindCombo(ui_->NoteLengthCombo, fields.NoteLengthCombo, handlers);
    BindCheck(ui_->ModDottedCheck, fields.ModDottedCheck, handlers);
    BindCheck(ui_->ModTripletCheck, fields.ModTripletCheck, handlers);
    BindEnabled(ui_->AddNote1Option, fields.AddNote1OptionEnabled);
    BindEnabled(ui_->AddNote2Option, fields.AddNote2OptionEnabled);
    BindEnabled(ui_->NoteReplaceCheck, fields.NoteReplaceCheckEnabled);
    BindEnabled(ui_->NoteLengthReplaceCheck, fields.NoteLengthReplaceCheckEnabled);
}

NoteEntryPanel::~NoteEntryPanel() = default;

}  // namespace quavix
