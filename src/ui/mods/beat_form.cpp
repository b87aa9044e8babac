// SPDX-License-Identifier: MIT
#include "ui/mods/beat_form.h"

#include "ui/widgets/binding.h"
#include "ui_beat_form.h"

namespace quavix {

BeatForm::BeatForm(const WindowParts& parts, QWidget* parent)
    : ModWindow(parts.Fields.UseBeatCheck, parts.Fields.UseBeatCheck, parts.Handlers, parent),
      ui_(std::make_unique<Ui::BeatForm>()) {
    ui_->setupUi(this);
    BindOptions(ui_->optBeatAll, parts.Fields.optBeatAll, ui_->optBeatEven, parts.Fields.optBeatEven,
                parts.Handlers);
}

BeatForm::~BeatForm() = default;

}  // namespace quavix
