// SPDX-License-Identifier: MIT
#include "playback/pitch_glide.h"

#include <utility>

#include "shell/numbers.h"

namespace quavix {

PitchGlide::PitchGlide(ModFields& mods, Speaker& speaker, Timers& timers, EventBoundary& handlers,
                       DebugLog& log)
    : mods_(mods), speaker_(speaker), timers_(timers), handlers_(handlers), log_(log) {
    mods_.UsePorta.Ticked.Watch(handlers_.Wrap("UsePortaCheck_Click", [this] { UsePortaCheck_Click(); }));
    Fields.PitchMultipleSlider.Watch(
        handlers_.Wrap("PitchMultipleSlider_Change", [this] { PitchMultipleSlider_Change(); }));
    Fields.SoundLengthSlider.Watch(
        handlers_.Wrap("SoundLengthSlider_Change", [this] { SoundLengthSlider_Change(); }));
    Fields.optSoundAlways.Watch(handlers_.Wrap("optSoundAlways_Click", [this](bool chosen) {
        if (chosen)
            StartSoundIfNeeded();
    }));
    Fields.optSoundStops.Watch(handlers_.Wrap("optSoundStops_Click", [this](bool chosen) {
        if (chosen)
            StartSoundIfNeeded();
    }));
    PitchMultipleSlider_Change();
    SoundLengthSlider_Change();
    StartSoundIfNeeded();
}

PitchGlide::~PitchGlide() {
    EnableEachToneTimer(false);
    EnableFinishTimer(false);
}

void PitchGlide::UsePortaCheck_Click() {
    mods_.UsePorta.InUse = mods_.UsePorta.Ticked;
    log_.Text("UsePortaCheck clicked - UsePortamento -> {}", LogFlag(mods_.UsePorta.InUse));
    StartSoundIfNeeded();
}

/// Starts the sound if the mod is on and the option asks for sound even without a note.
void PitchGlide::StartSoundIfNeeded() {
    EnableFinishTimer(false);
    EnableEachToneTimer(mods_.UsePorta.InUse && Fields.optSoundAlways);
}

void PitchGlide::Sound(const Tone& tone) {
    const std::int32_t frequency = tone.WholeFrequency();
    log_.Text("PC Speaker - Tweeble Portamento - WantedPitch -> {}", frequency);
    wantedPitch_ = frequency;
    StartSound();
}

void PitchGlide::StartSound() {
    if (!currentPitch_)
        currentPitch_ = wantedPitch_;
    EnableEachToneTimer(true);
    EnableFinishTimer(Fields.optSoundStops);
}

void PitchGlide::PitchMultipleSlider_Change() {
    constexpr double SliderScale = 10000;
    constexpr double Percent = 100;
    pitchMultiple_ = Fields.PitchMultipleSlider / SliderScale;
    Fields.lblPitchMultiple = NumberText(Fields.PitchMultipleSlider / (SliderScale / Percent)) + "%";
}

void PitchGlide::SoundLengthSlider_Change() {
    Fields.lblSoundLength = std::to_string(Fields.SoundLengthSlider);
    if (finishTimer_ != 0)
        EnableFinishTimer(true);  // restart with the new interval
}

void PitchGlide::EachToneTimer_Timer() {
    constexpr std::int32_t ChunkMs = 30;
    // The approach ends only at exactly this distance in Hz; from any other it continues, ever closer.
    constexpr double StopsAtDistance = 5;
    if (!currentPitch_)
        return;
    speaker_.Beep(ToInt32(*currentPitch_), ChunkMs);
    const double distance = wantedPitch_ - *currentPitch_;
    if (distance != StopsAtDistance)
        *currentPitch_ += distance * pitchMultiple_;
}

void PitchGlide::FinishTimer_Timer() {
    EnableEachToneTimer(false);
    EnableFinishTimer(false);
}

/// A chunk lasts twice the interval, so that the next one follows without a gap.
void PitchGlide::EnableEachToneTimer(bool enable) {
    constexpr std::int32_t IntervalMs = 15;
    if (enable == (eachToneTimer_ != 0))
        return;
    if (enable) {
        eachToneTimer_ = timers_.Start(
            IntervalMs, handlers_.Wrap("EachToneTimer_Timer", [this] { EachToneTimer_Timer(); }));
    } else {
        timers_.Stop(std::exchange(eachToneTimer_, 0));
    }
}

/// Enables or disables the timer; enabling restarts it.
void PitchGlide::EnableFinishTimer(bool enable) {
    timers_.Stop(std::exchange(finishTimer_, 0));
    if (enable) {
        finishTimer_ = timers_.Start(Fields.SoundLengthSlider,
                                     handlers_.Wrap("FinishTimer_Timer", [this] { FinishTimer_Timer(); }));
    }
}

}  // namespace quavix
