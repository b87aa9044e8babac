// SPDX-License-Identifier: MIT
#include "ui/main_window/notes_to_play_panel.h"

#include "ui/widgets/binding.h"
#include "ui_notes_to_play_panel.h"

namespace quavix {

NotesToPlayPanel::NotesToPlayPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent), parts_(parts), ui_(std::make_unique<Ui::NotesToPlayPanel>()) {
    ui_->setupUi(this);
    MainFields& fields = parts_.Fields;
    BindCheck(ui_->ClickPlayNote1Check, fields.ClickPlayNote1Check, parts_.Handlers);
    BindCheck(ui_->ClickPlayNote2Check, fields.ClickPlayNote2Check, parts_.Handlers);
    BindCheck(ui_->PlayNote1Check, fields.PlayNote1Check, parts_.Handlers);
    BindCheck(ui_->PlayNote2Check, fields.PlayNote2Check, parts_.Handlers);
}

NotesToPlayPanel::~NotesToPlayPanel() = default;

}  // namespace quavix
