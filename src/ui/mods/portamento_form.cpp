// SPDX-License-Identifier: MIT
#include "playback/pitch_glide.h"
#include "ui/mods/mod_forms.h"
#include "ui/texts.h"
#include "ui/widgets/binding.h"
#include "ui_portamento_form.h"

namespace quavix {

void SetUpPortamentoForm(ModWindow& form, PitchGlide& glide, EventBoundary& handlers) {
    Ui::PortamentoForm ui{};
    ui.setupUi(&form);
    KeepWidthOf(ui.lblPitchMultiple, "00.00%");
    KeepWidthOf(ui.lblSoundLength, "00.00%");  // aligns the ends of both sliders
    ui.lblNote->setText(text::UsePorta.HelpText);

    PortamentoFields& fields = glide.Fields;
    BindSlider(ui.PitchMultipleSlider, fields.PitchMultipleSlider, parameter::PitchMultiple, "Change",
               handlers);
    BindLabel(ui.lblPitchMultiple, fields.lblPitchMultiple);
    BindOptions(ui.optSoundAlways, fields.optSoundAlways, ui.optSoundStops, fields.optSoundStops, handlers);
    BindSlider(ui.SoundLengthSlider, fields.SoundLengthSlider, parameter::SoundLength, "Change", handlers);
    BindLabel(ui.lblSoundLength, fields.lblSoundLength);
    form.resize(form.sizeHint());
}

}  // namespace quavix
