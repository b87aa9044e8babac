// SPDX-License-Identifier: MIT
#include "ui/main_window/notes_to_play_panel.h"

#include "ui/widgets/binding.h"
#include "ui_notes_to_play_panel.h"

namespace quavix {

NotesToPlayPanel::NotesToPlayPanel(SongFields& song, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), handlers_(handlers), ui_(std::make_unique<Ui::NotesToPlayPanel>()) {
    ui_->setupUi(this);
    BindCheck(ui_->ClickPlayNote1Check, song.ClickPlayNote1Check, handlers_);
    BindCheck(ui_->ClickPlayNote2Check, song.ClickPlayNote2Check, handlers_);
    BindCheck(ui_->PlayNote1Check, song.PlayNote1Check, handlers_);
    BindCheck(ui_->PlayNote2Check, song.PlayNote2Check, handlers_);
}

NotesToPlayPanel::~NotesToPlayPanel() = default;

}  // namespace quavix
