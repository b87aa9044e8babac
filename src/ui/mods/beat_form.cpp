// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "playback/beat.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_beat_form.h"

namespace quavix {

ModWindow* MakeBeatForm(ModFields& mods, Beat& beat, EventBoundary& handlers, QWidget* owner) {
    auto* form = new ModWindow(mods.UseBeat.Ticked, mods.UseBeat.Ticked, handlers, owner);
    Ui::BeatForm ui{};
    ui.setupUi(form);
    BindOptions(ui.optBeatAll, beat.optBeatAll, ui.optBeatEven, beat.optBeatEven, handlers);
    return form;
}

}  // namespace quavix
