// SPDX-License-Identifier: MIT
#include <QRadioButton>

#include "fmod/sound_mods.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_fmod_options_form.h"

namespace quavix {

void SetUpFMODOptionsForm(ModWindow& form, SoundMods& sound, EventBoundary& handlers) {
    Ui::FMODOptionsForm ui{};
    ui.setupUi(&form);
    FmodToneGenerator& generator = sound.Generator;
    for (const auto& [button, waveform] :
         std::initializer_list<std::pair<QRadioButton*, std::int32_t>>{{ui.optSine, SOUND_SINE},
                                                                       {ui.optSquare, SOUND_SQUARE},
                                                                       {ui.optTriangle, SOUND_FALLING_SAW},
                                                                       {ui.optNoise, SOUND_NOISE}}) {
        ShowIn(button, generator.DSPType, [option = button, own = waveform](std::int32_t chosen) {
            if (chosen == own)
                option->setChecked(true);
        });
        // Assistive technology toggles without a click.
        QObject::connect(button, &QRadioButton::toggled, &form,
                         [&generator, &handlers, option = button, own = waveform](bool chosen) {
                             if (chosen && generator.DSPType != own)
                                 RunHandler(*option, "Click", handlers,
                                            [&] { generator.ChangeDSPType(own); });
                         });
    }
    BindCheck(ui.NeverSilentCheck, sound.UseFmod.NeverSilentCheck, handlers);
}

}  // namespace quavix
