// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "fmod/voice_main_form.h"
#include "fmod/voice_parameters.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// The check box of the singing voice, and the sliders of its window. Moving a slider changes the voice at
/// once; until the voice is first switched on, a slider only keeps its position.
class UseVoice {
  public:
    UseVoice(ModFields& mods, OutputOptions& output, VoiceMainForm& voice, FmodErrors& errors,
             EventBoundary& handlers);

    /// The slider of the voice's own volume is in OutputOptions.
    Watched<std::int32_t> SawVolSlider{parameter::SawVol.Default};
    Watched<std::int32_t> NoiseVolSlider{parameter::NoiseVol.Default};
    Watched<std::int32_t> CutoffFreqSlider{parameter::CutoffFreq.Default};
    Watched<std::int32_t> FormantTimbreSlider{parameter::FormantTimbre.Default};
    Watched<std::int32_t> FormantRandomFreqSlider{parameter::FormantRandomFreq.Default};
    std::array<Watched<std::int32_t>, FormantCount> FormantDSPFreqSlider;
    std::array<Watched<std::int32_t>, FormantCount> FormantDSPVolSlider;

    // Labels beside the sliders: the value with its unit.
    Watched<std::string> lblSawVol;
    Watched<std::string> lblNoiseVol;
    Watched<std::string> lblVoiceVol;
    Watched<std::string> lblCutoffFreq;
    Watched<std::string> lblFormantTimbre;
    Watched<std::string> lblFormantRandomFreq;
    std::array<Watched<std::string>, FormantCount> lblFormantDSPFreq;
    std::array<Watched<std::string>, FormantCount> lblFormantDSPVol;

    /// True while the voice is in use: the window is shown.
    Watched<bool> VoiceInternalFormVisible;

    /// Handles a vowel button: sets all formants.
    void SpeechButton_Click(const Vowel& vowel);

    /// Moves the sliders to the formants' values.
    void UpdateFormantSliders();

  private:
    void WatchSliders();
    void WatchFormantSliders();
    void UseVoiceCheck_Click();
    void StartVoice();

    ModFields& mods_;
    OutputOptions& output_;
    VoiceMainForm& voice_;
    FmodErrors& errors_;
};

}  // namespace quavix
