// SPDX-License-Identifier: MIT
#include "ui/main_window/editing_panel.h"

#include "ui/widgets/binding.h"
#include "ui_editing_panel.h"

namespace quavix {

EditingPanel::EditingPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent), parts_(parts), ui_(std::make_unique<Ui::EditingPanel>()) {
    ui_->setupUi(this);
    EventBoundary& handlers = parts_.Handlers;
    BindButton(ui_->ClearNote1Button, handlers, [this] { parts_.Editing.ClearNote1Button_Click(); });
    BindButton(ui_->ClearNote2Button, handlers, [this] { parts_.Editing.ClearNote2Button_Click(); });
    BindButton(ui_->Command1, handlers, [this] { parts_.Editing.Command1_Click(); });
    BindButton(ui_->SilentLineButton, handlers, [this] { parts_.Editing.SilentLineButton_Click(); });
    BindButton(ui_->UnselectButton, handlers, [this] { parts_.Editing.UnselectButton_Click(); });
}

EditingPanel::~EditingPanel() = default;

}  // namespace quavix
