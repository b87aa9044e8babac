// SPDX-License-Identifier: MIT
#include "ui/main_window/notes_to_play_panel.h"

#include "ui/widgets/binding.h"
#include "ui_notes_to_play_panel.h"

namespace quavix {

NotesToPlayPanel::NotesToPlayPanel(MainFields& fields, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), handlers_(handlers), ui_(std::make_unique<Ui::NotesToPlayPanel>()) {
    ui_->setupUi(this);
    BindCheck(ui_->ClickPlayNote1Check, fields.ClickPlayNote1Check, handlers_);
    BindCheck(ui_->ClickPlayNote2Check, fields.ClickPlayNote2Check, handlers_);
    BindCheck(ui_->PlayNote1Check, fields.PlayNote1Check, handlers_);
    BindCheck(ui_->PlayNote2Check, fields.PlayNote2Check, handlers_);
}

NotesToPlayPanel::~NotesToPlayPanel() = default;

}  // namespace quavix
