// SPDX-License-Identifier: MIT
#include "ui/mods/voice_internal_form.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "fmod/voice_parameters.h"
#include "ui/widgets/binding.h"
#include "ui_voice_internal_form.h"

namespace quavix {

VoiceInternalForm::VoiceInternalForm(ModFields& mods, OutputOptions& output, SoundMods& sound,
                                     EventBoundary& handlers, QWidget* owner)
    : ModWindow(sound.UseVoice.VoiceInternalFormVisible, mods.UseVoice.Ticked, handlers, owner),
      mods_(mods),
      output_(output),
      controls_(sound.UseVoice),
      handlers_(handlers),
      ui_(std::make_unique<Ui::VoiceInternalForm>()) {
    ui_->setupUi(this);
    BindSliders();
    BindFormants();
    BindVowels();
}

VoiceInternalForm::~VoiceInternalForm() = default;

void VoiceInternalForm::Bind(QSlider* slider, Watched<std::int32_t>& value, const Parameter& range,
                             QLabel* label, const Watched<std::string>& words) {
    constexpr int PagesPerRange = 20;
    BindSlider(slider, value, range, "Change", handlers_);
    slider->setPageStep(std::max((range.Highest - range.Lowest) / PagesPerRange, 1));
    BindLabel(label, words);
}

void VoiceInternalForm::BindSliders() {
    Bind(ui_->SawVolSlider, controls_.SawVolSlider, parameter::SawVol, ui_->lblSawVol, controls_.lblSawVol);
    Bind(ui_->NoiseVolSlider, controls_.NoiseVolSlider, parameter::NoiseVol, ui_->lblNoiseVol,
         controls_.lblNoiseVol);
    Bind(ui_->VoiceVolSlider, output_.VoiceVolSlider, parameter::VoiceVol, ui_->lblVoiceVol,
         controls_.lblVoiceVol);
    Bind(ui_->CutoffFreqSlider, controls_.CutoffFreqSlider, parameter::CutoffFreq, ui_->lblCutoffFreq,
         controls_.lblCutoffFreq);
    Bind(ui_->FormantTimbreSlider, controls_.FormantTimbreSlider, parameter::FormantTimbre,
         ui_->lblFormantTimbre, controls_.lblFormantTimbre);
    Bind(ui_->FormantRandomFreqSlider, controls_.FormantRandomFreqSlider, parameter::FormantRandomFreq,
         ui_->lblFormantRandomFreq, controls_.lblFormantRandomFreq);
}

void VoiceInternalForm::BindFormants() {
    QSlider* const frequencies[] = {ui_->FormantDSPFreqSlider0, ui_->FormantDSPFreqSlider1,
                                    ui_->FormantDSPFreqSlider2, ui_->FormantDSPFreqSlider3};
    QSlider* const volumes[] = {ui_->FormantDSPVolSlider0, ui_->FormantDSPVolSlider1,
                                ui_->FormantDSPVolSlider2, ui_->FormantDSPVolSlider3};
    QLabel* const frequencyLabels[] = {ui_->lblFormantDSPFreq0, ui_->lblFormantDSPFreq1,
                                       ui_->lblFormantDSPFreq2, ui_->lblFormantDSPFreq3};
    QLabel* const volumeLabels[] = {ui_->lblFormantDSPVol0, ui_->lblFormantDSPVol1, ui_->lblFormantDSPVol2,
                                    ui_->lblFormantDSPVol3};
    for (std::size_t i = 0; i < FormantCount; ++i) {
        Bind(frequencies[i], controls_.FormantDSPFreqSlider[i], parameter::FormantFreq, frequencyLabels[i],
             controls_.lblFormantDSPFreq[i]);
        Bind(volumes[i], controls_.FormantDSPVolSlider[i], parameter::FormantVol, volumeLabels[i],
             controls_.lblFormantDSPVol[i]);
    }
}

void VoiceInternalForm::BindVowels() {
    for (const auto& [button, vowel] :
         {std::pair{ui_->SpeechAButton, &vowel::A}, std::pair{ui_->SpeechEButton, &vowel::E},
          std::pair{ui_->SpeechIButton, &vowel::I}, std::pair{ui_->SpeechOButton, &vowel::O},
          std::pair{ui_->SpeechUButton, &vowel::U}}) {
        BindButton(button, handlers_,
                   [controls = &controls_, wanted = vowel] { controls->SpeechButton_Click(*wanted); });
    }
}

}  // namespace quavix
