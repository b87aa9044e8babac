// SPDX-License-Identifier: MIT
#include "playback/beat.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_beat_form.h"

namespace quavix {

void SetUpBeatForm(ModWindow& form, Beat& beat, EventBoundary& handlers) {
    Ui::BeatForm ui{};
    ui.setupUi(&form);
    BindOptions(ui.optBeatAll, beat.optBeatAll, ui.optBeatEven, beat.optBeatEven, handlers);
}

}  // namespace quavix
