// SPDX-License-Identifier: MIT
#include "music/list_editing.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_editing_panel.h"

namespace quavix {

QWidget* MakeEditingPanel(ListEditing& editing, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::EditingPanel ui{};
    ui.setupUi(panel);
    BindButton(ui.ClearNote1Button, handlers, [&editing] { editing.ClearNote1Button_Click(); });
    BindButton(ui.ClearNote2Button, handlers, [&editing] { editing.ClearNote2Button_Click(); });
    BindButton(ui.Command1, handlers, [&editing] { editing.Command1_Click(); });
    BindButton(ui.SilentLineButton, handlers, [&editing] { editing.SilentLineButton_Click(); });
    BindButton(ui.UnselectButton, handlers, [&editing] { editing.UnselectButton_Click(); });
    return panel;
}

}  // namespace quavix
