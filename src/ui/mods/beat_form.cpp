// SPDX-License-Identifier: MIT
#include "ui/mods/beat_form.h"

#include "ui/widgets/binding.h"
#include "ui_beat_form.h"

namespace quavix {

BeatForm::BeatForm(ModFields& mods, Beat& beat, EventBoundary& handlers, QWidget* parent)
    : ModWindow(mods.UseBeat.Ticked, mods.UseBeat.Ticked, handlers, parent),
      ui_(std::make_unique<Ui::BeatForm>()) {
    ui_->setupUi(this);
    BindOptions(ui_->optBeatAll, beat.optBeatAll, ui_->optBeatEven, beat.optBeatEven, handlers);
}

BeatForm::~BeatForm() = default;

}  // namespace quavix
