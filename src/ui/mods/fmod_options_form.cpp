// SPDX-License-Identifier: MIT
#include "ui/mods/fmod_options_form.h"

#include <QRadioButton>

#include "ui/widgets/binding.h"
#include "ui_fmod_options_form.h"

namespace quavix {

FMODOptionsForm::FMODOptionsForm(ModFields& mods, SoundMods& sound, EventBoundary& handlers, QWidget* owner)
    : ModWindow(sound.UseFmod.FMODOptionsFormVisible, mods.UseFMOD.Ticked, handlers, owner),
      ui_(std::make_unique<Ui::FMODOptionsForm>()) {
    ui_->setupUi(this);
    FmodToneGenerator& generator = sound.Generator;
    for (const auto& [button, waveform] :
         {std::pair{ui_->optSine, fmod_waveform::Sine}, std::pair{ui_->optSquare, fmod_waveform::Square},
          std::pair{ui_->optTriangle, fmod_waveform::FallingSaw},
          std::pair{ui_->optNoise, fmod_waveform::Noise}}) {
        ShowIn(button, generator.DSPType, [option = button, own = waveform](std::int32_t chosen) {
            if (chosen == own)
                option->setChecked(true);
        });
        // Assistive technology toggles without a click.
        connect(button, &QRadioButton::toggled, this,
                [&generator, &handlers, option = button, own = waveform](bool chosen) {
                    if (chosen && generator.DSPType != own)
                        RunHandler(*option, "Click", handlers, [&] { generator.ChangeDSPType(own); });
                });
    }
    BindCheck(ui_->NeverSilentCheck, sound.UseFmod.NeverSilentCheck, handlers);
}

FMODOptionsForm::~FMODOptionsForm() = default;

}  // namespace quavix
