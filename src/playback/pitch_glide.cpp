// SPDX-License-Identifier: MIT
#include "playback/pitch_glide.h"

#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr double SliderScale = 10000;

}  // namespace

PitchGlide::PitchGlide(ModFields& mods, Speaker& speaker, Timers& timers, EventBoundary& handlers,
                       DebugLog& log)
    : mods_(mods),
      speaker_(speaker),
      log_(log),
      eachToneTimer_(timers, handlers, "EachToneTimer_Timer", [this] { EachToneTimer_Timer(); }),
      finishTimer_(timers, handlers, "FinishTimer_Timer", [this] { StopSound(); }) {
    mods_.UsePorta.Ticked.Watch(handlers.Wrap("UsePortaCheck_Click", [this] { UsePortaCheck_Click(); }));
    Fields.PitchMultipleSlider.Watch(
        handlers.Wrap("PitchMultipleSlider_Change", [this] { PitchMultipleSlider_Change(); }));
    Fields.SoundLengthSlider.Watch(
        handlers.Wrap("SoundLengthSlider_Change", [this] { SoundLengthSlider_Change(); }));
    const auto optionChosen = [this](bool chosen) {
        if (chosen)
            StartSoundIfNeeded();
    };
    Fields.optSoundAlways.Watch(handlers.Wrap("optSoundAlways_Click", optionChosen));
    Fields.optSoundStops.Watch(handlers.Wrap("optSoundStops_Click", optionChosen));
    PitchMultipleSlider_Change();
    SoundLengthSlider_Change();
    StartSoundIfNeeded();
}

void PitchGlide::UsePortaCheck_Click() {
    mods_.UsePorta.InUse = mods_.UsePorta.Ticked;
    log_.Text("UsePortaCheck clicked - UsePortamento -> {}", LogFlag(mods_.UsePorta.InUse));
    StartSoundIfNeeded();
}

/// Starts the sound if the mod is on and the option asks for sound even without a note.
void PitchGlide::StartSoundIfNeeded() {
    if (mods_.UsePorta.InUse && Fields.optSoundAlways) {
        finishTimer_.Stop();
        StartChunks();
    } else {
        StopSound();
    }
}

void PitchGlide::Sound(const Tone& tone) {
    const std::int32_t frequency = tone.WholeFrequency();
    log_.Text("PC Speaker - Tweeble Portamento - WantedPitch -> {}", frequency);
    wantedPitch_ = frequency;
    if (!currentPitch_)
        currentPitch_ = wantedPitch_;
    StartChunks();
    if (Fields.optSoundStops)
        finishTimer_.Start(Fields.SoundLengthSlider);
    else
        finishTimer_.Stop();
}

void PitchGlide::PitchMultipleSlider_Change() {
    constexpr double Percent = 100;
    Fields.lblPitchMultiple = NumberText(Fields.PitchMultipleSlider / (SliderScale / Percent)) + "%";
}

void PitchGlide::SoundLengthSlider_Change() {
    Fields.lblSoundLength = std::to_string(Fields.SoundLengthSlider);
    if (finishTimer_.IsRunning())
        finishTimer_.Start(Fields.SoundLengthSlider);  // with the new interval
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
        *currentPitch_ += distance * (Fields.PitchMultipleSlider / SliderScale);
}

void PitchGlide::StopSound() {
    eachToneTimer_.Stop();
    finishTimer_.Stop();
}

/// A chunk lasts twice the interval, so that the next one follows without a gap.
void PitchGlide::StartChunks() {
    constexpr std::int32_t IntervalMs = 15;
    if (!eachToneTimer_.IsRunning())
        eachToneTimer_.Start(IntervalMs);
}

}  // namespace quavix
