// SPDX-License-Identifier: MIT
#include <QLabel>
#include <QSlider>

#include "fmod/sound_mods.h"
#include "fmod/voice_parameters.h"
#include "music/main_fields.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_voice_internal_form.h"

namespace quavix {

void SetUpVoiceInternalForm(ModWindow& form, OutputOptions& output, SoundMods& sound,
                            EventBoundary& handlers) {
    UseVoice& controls = sound.UseVoice;
    Ui::VoiceInternalForm ui{};
    ui.setupUi(&form);

    const auto bind = [&handlers](QSlider* slider, Watched<std::int32_t>& value, const Parameter& range,
                                  QLabel* label, const Watched<std::string>& words) {
        constexpr int PagesPerRange = 20;
        BindSlider(slider, value, range, "Change", handlers);
        slider->setPageStep(std::max((range.Highest - range.Lowest) / PagesPerRange, 1));
        BindLabel(label, words);
    };
    bind(ui.SawVolSlider, controls.SawVolSlider, parameter::SawVol, ui.lblSawVol, controls.lblSawVol);
    bind(ui.NoiseVolSlider, controls.NoiseVolSlider, parameter::NoiseVol, ui.lblNoiseVol,
         controls.lblNoiseVol);
    bind(ui.VoiceVolSlider, output.VoiceVolSlider, parameter::VoiceVol, ui.lblVoiceVol, controls.lblVoiceVol);
    bind(ui.CutoffFreqSlider, controls.CutoffFreqSlider, parameter::CutoffFreq, ui.lblCutoffFreq,
         controls.lblCutoffFreq);
    bind(ui.FormantTimbreSlider, controls.FormantTimbreSlider, parameter::FormantTimbre, ui.lblFormantTimbre,
         controls.lblFormantTimbre);
    bind(ui.FormantRandomFreqSlider, controls.FormantRandomFreqSlider, parameter::FormantRandomFreq,
         ui.lblFormantRandomFreq, controls.lblFormantRandomFreq);

    QSlider* const frequencies[] = {ui.FormantDSPFreqSlider0, ui.FormantDSPFreqSlider1,
                                    ui.FormantDSPFreqSlider2, ui.FormantDSPFreqSlider3};
    QSlider* const volumes[] = {ui.FormantDSPVolSlider0, ui.FormantDSPVolSlider1, ui.FormantDSPVolSlider2,
                                ui.FormantDSPVolSlider3};
    QLabel* const frequencyLabels[] = {ui.lblFormantDSPFreq0, ui.lblFormantDSPFreq1, ui.lblFormantDSPFreq2,
                                       ui.lblFormantDSPFreq3};
    QLabel* const volumeLabels[] = {ui.lblFormantDSPVol0, ui.lblFormantDSPVol1, ui.lblFormantDSPVol2,
                                    ui.lblFormantDSPVol3};
    for (std::size_t i = 0; i < FormantCount; ++i) {
        bind(frequencies[i], controls.FormantDSPFreqSlider[i], parameter::FormantFreq, frequencyLabels[i],
             controls.lblFormantDSPFreq[i]);
        bind(volumes[i], controls.FormantDSPVolSlider[i], parameter::FormantVol, volumeLabels[i],
             controls.lblFormantDSPVol[i]);
    }

    for (const auto& [button, vowel] :
         {std::pair{ui.SpeechAButton, &vowel::A}, std::pair{ui.SpeechEButton, &vowel::E},
          std::pair{ui.SpeechIButton, &vowel::I}, std::pair{ui.SpeechOButton, &vowel::O},
          std::pair{ui.SpeechUButton, &vowel::U}})
        BindButton(button, handlers, [&controls, wanted = vowel] { controls.SpeechButton_Click(*wanted); });
}

}  // namespace quavix
