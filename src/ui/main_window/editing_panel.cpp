// SPDX-License-Identifier: MIT
#include "ui/main_window/editing_panel.h"

#include "ui/widgets/binding.h"
#include "ui_editing_panel.h"

namespace quavix {

EditingPanel::EditingPanel(ListEditing& editing, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), editing_(editing), ui_(std::make_unique<Ui::EditingPanel>()) {
    ui_->setupUi(this);
    BindButton(ui_->ClearNote1Button, handlers, [this] { editing_.ClearNote1Button_Click(); });
    BindButton(ui_->ClearNote2Button, handlers, [this] { editing_.ClearNote2Button_Click(); });
    BindButton(ui_->Command1, handlers, [this] { editing_.Command1_Click(); });
    BindButton(ui_->SilentLineButton, handlers, [this] { editing_.SilentLineButton_Click(); });
    BindButton(ui_->UnselectButton, handlers, [this] { editing_.UnselectButton_Click(); });
}

EditingPanel::~EditingPanel() = default;

}  // namespace quavix
