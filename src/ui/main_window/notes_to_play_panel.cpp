// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_notes_to_play_panel.h"

namespace quavix {

QWidget* MakeNotesToPlayPanel(SongFields& song, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::NotesToPlayPanel ui{};
    ui.setupUi(panel);
    BindCheck(ui.ClickPlayNote1Check, song.ClickPlayNote1Check, handlers);
    BindCheck(ui.ClickPlayNote2Check, song.ClickPlayNote2Check, handlers);
    BindCheck(ui.PlayNote1Check, song.PlayNote1Check, handlers);
    BindCheck(ui.PlayNote2Check, song.PlayNote2Check, handlers);
    return panel;
}

}  // namespace quavix
