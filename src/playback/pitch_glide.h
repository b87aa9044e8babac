// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "music/tone.h"
#include "ports/speaker.h"
#include "shell/debug_log.h"
#include "shell/event_timer.h"
#include "shell/watched.h"

namespace quavix {

/// Values of the controls in the portamento window.
struct PortamentoFields {
    Watched<std::int32_t> PitchMultipleSlider{parameter::PitchMultiple.Default};
    Watched<std::string> lblPitchMultiple;
    Watched<bool> optSoundAlways{false};
    Watched<bool> optSoundStops{true};
    Watched<std::int32_t> SoundLengthSlider{parameter::SoundLength.Default};
    Watched<std::string> lblSoundLength;
};

/// The tweeble portamento: the PC speaker sounds in short, consecutive chunks, each of which covers a fixed
/// part of the remaining distance to the wanted pitch. The pitch is kept between notes, so a glide starts
/// where the last one stopped; the first note starts at its own pitch. Switched by UsePortaCheck, which it
/// watches during the whole lifetime of the fields; it must live as long.
class PitchGlide final : public ToneOutput {
  public:
    PitchGlide(ModFields& mods, Speaker& speaker, Timers& timers, EventBoundary& handlers, DebugLog& log);

    /// Starts a glide to the tone's pitch and returns at once; the caller has to wait for the duration.
    void Sound(const Tone& tone) override;

    PortamentoFields Fields;

  private:
    void StartSoundIfNeeded();
    void UsePortaCheck_Click();
    void PitchMultipleSlider_Change();
    void SoundLengthSlider_Change();
    void EachToneTimer_Timer();
    void StopSound();
    void StartChunks();

    ModFields& mods_;
    Speaker& speaker_;
    DebugLog& log_;
    std::int32_t wantedPitch_ = 0;
    /// Current pitch in Hz; none before the first note.
    std::optional<double> currentPitch_;
    EventTimer eachToneTimer_;
    EventTimer finishTimer_;
};

}  // namespace quavix
