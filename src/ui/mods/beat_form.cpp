// SPDX-License-Identifier: MIT
#include "ui/mods/beat_form.h"

#include "ui/widgets/binding.h"
#include "ui_beat_form.h"

namespace quavix {

BeatForm::BeatForm(MainFields& fields, EventBoundary& handlers, QWidget* parent)
    : ModWindow(fields.UseBeatCheck, fields.UseBeatCheck, handlers, parent),
      ui_(std::make_unique<Ui::BeatForm>()) {
    ui_->setupUi(this);
    BindOptions(ui_->optBeatAll, fields.optBeatAll, ui_->optBeatEven, fields.optBeatEven, handlers);
}

BeatForm::~BeatForm() = default;

}  // namespace quavix
