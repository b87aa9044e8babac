// SPDX-License-Identifier: MIT
#include "fmod/use_voice.h"

#include <fmt/format.h>

namespace quavix {
namespace {

double VolumeOf(std::int32_t slider) {
    constexpr double TenThousandths = 10000;
    return slider / TenThousandths;
}

std::string VolumeText(std::int32_t slider) {
    constexpr double PerPercent = 100;
    return fmt::format("{:.1f} %", slider / PerPercent);
}

std::string HertzText(std::int32_t hertz) {
    return fmt::format("{} Hz", hertz);
}

std::string TimbreText(std::int32_t thousandths) {
    constexpr double PerPercent = 10;
    return fmt::format("{}{:.1f} %", thousandths > 0 ? "+" : "", thousandths / PerPercent);
}

/// Shows a slider's value in its label, now and at every change.
template <typename Text>
void Describe(Watched<std::int32_t>& slider, Watched<std::string>& label, Text text) {
    label = text(slider);
    slider.Watch([&label, text](std::int32_t position) { label = text(position); });
}

}  // namespace

UseVoice::UseVoice(ModFields& mods, OutputOptions& output, VoiceMainForm& voice, FmodErrors& errors,
                   EventBoundary& handlers)
    : mods_(mods), output_(output), voice_(voice), errors_(errors) {
    for (std::size_t i = 0; i < FormantCount; ++i) {
        FormantDSPFreqSlider[i] = vowel::A[i].Frequency;
        FormantDSPVolSlider[i] = vowel::A[i].Volume;
        Describe(FormantDSPFreqSlider[i], lblFormantDSPFreq[i], HertzText);
        Describe(FormantDSPVolSlider[i], lblFormantDSPVol[i],
                 [](std::int32_t volume) { return std::to_string(volume); });
    }
    Describe(SawVolSlider, lblSawVol, VolumeText);
    Describe(NoiseVolSlider, lblNoiseVol, VolumeText);
    Describe(output_.VoiceVolSlider, lblVoiceVol, VolumeText);
    Describe(CutoffFreqSlider, lblCutoffFreq, HertzText);
    Describe(FormantTimbreSlider, lblFormantTimbre, TimbreText);
    Describe(FormantRandomFreqSlider, lblFormantRandomFreq,
             [](std::int32_t hertz) { return fmt::format("± {} Hz", hertz); });
    voice_.FormantTimbre = FormantTimbreSlider;
    voice_.MaxRandomFormantFreq = FormantRandomFreqSlider;
    WatchSliders();
    WatchFormantSliders();
    mods_.UseVoice.Ticked.Watch(handlers.Wrap("UseVoiceCheck_Click", [this] { UseVoiceCheck_Click(); }));
}

void UseVoice::WatchSliders() {
    FormantTimbreSlider.Watch([this](std::int32_t thousandths) { voice_.FormantTimbre = thousandths; });
    FormantRandomFreqSlider.Watch([this](std::int32_t hertz) { voice_.MaxRandomFormantFreq = hertz; });
    const auto applyIfLoaded = [this](Watched<std::int32_t>& slider, auto apply) {
        slider.Watch([this, apply](std::int32_t position) {
            if (voice_.IsLoaded())
                apply(position);
        });
    };
    applyIfLoaded(SawVolSlider, [this](std::int32_t volume) { voice_.ChangeSawVol(VolumeOf(volume)); });
    applyIfLoaded(NoiseVolSlider, [this](std::int32_t volume) { voice_.ChangeNoiseVol(VolumeOf(volume)); });
    applyIfLoaded(output_.VoiceVolSlider,
                  [this](std::int32_t volume) { voice_.ChangeVoiceVol(VolumeOf(volume)); });
    applyIfLoaded(CutoffFreqSlider, [this](std::int32_t hertz) { voice_.ChangeCutoffFreq(hertz); });
}

/// Applies the sliders to the voice. A slider that merely follows the voice changes nothing.
void UseVoice::WatchFormantSliders() {
    for (std::size_t i = 0; i < FormantCount; ++i) {
        FormantDSPFreqSlider[i].Watch([this, i](std::int32_t frequency) {
            if (voice_.IsLoaded() && frequency != voice_.FormantFreq(i))
                voice_.ChangeFormantFreqVol(i, frequency, {}, true);
        });
        FormantDSPVolSlider[i].Watch([this, i](std::int32_t volume) {
            if (voice_.IsLoaded() && volume != voice_.FormantVol(i))
                voice_.ChangeFormantFreqVol(i, {}, volume, true);
        });
    }
}

void UseVoice::UseVoiceCheck_Click() {
    if (mods_.UseVoice.Ticked) {
        errors_.ShowTogether([this] {
            voice_.Load();
            StartVoice();
            VoiceInternalFormVisible = true;
            voice_.ChangeVoiceVol(0);
        });
    } else {
        voice_.ChangeVoiceVol(0);
        voice_.StopMoving();
        VoiceInternalFormVisible = false;
    }
}

void UseVoice::StartVoice() {
    voice_.StartSources();
    voice_.ChangeSawVol(VolumeOf(SawVolSlider));
    voice_.ChangeNoiseVol(VolumeOf(NoiseVolSlider));
    voice_.ChangeVoiceVol(VolumeOf(output_.VoiceVolSlider));
    voice_.ChangeCutoffFreq(CutoffFreqSlider);
    for (std::size_t i = 0; i < FormantCount; ++i)
        voice_.ChangeFormantFreqVol(i, FormantDSPFreqSlider[i], FormantDSPVolSlider[i], true);
}

void UseVoice::SpeechButton_Click(const Vowel& vowel) {
    for (std::size_t i = 0; i < FormantCount; ++i)
        voice_.ChangeFormantFreqVol(i, vowel[i].Frequency, vowel[i].Volume, true);
    // Twice, because moving the first sliders may have moved others.
    UpdateFormantSliders();
    UpdateFormantSliders();
}

void UseVoice::UpdateFormantSliders() {
    for (std::size_t i = 0; i < FormantCount; ++i) {
        FormantDSPFreqSlider[i] = static_cast<std::int32_t>(voice_.FormantFreq(i));
        FormantDSPVolSlider[i] = voice_.FormantVol(i);
    }
}

}  // namespace quavix
