// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "fmod/fmod_engine.h"
#include "music/main_fields.h"
#include "music/tone.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of FmodToneGenerator. All must outlive it.
struct FmodToneParts {
    ModFields& Mods;
    const OutputOptions& Output;
    FmodEngine& Engine;
    SoundLibrary& Library;
    FmodErrors& Errors;
    Waiting& Wait;
    DebugLog& Log;
    /// Sends a command to the motor controller.
    std::function<void(const std::string& text)> SendString;
};

/// Makes tones on the sound card: the engine's channel is set to the tone's pitch and un-paused, and paused
/// for silence.
class FmodToneGenerator final : public ToneOutput {
  public:
    explicit FmodToneGenerator(FmodToneParts parts);
    FmodToneGenerator(const FmodToneGenerator&) = delete;
    FmodToneGenerator& operator=(const FmodToneGenerator&) = delete;

    /// Keeps on sounding afterwards where the tone or the never-silent option asks for it. Bare frequencies
    /// always stop.
    void Sound(const Tone& tone) override;

    /// Sounds `frequency` Hz for `durationMs`. `noStop` keeps it sounding afterwards; `noWait` returns at
    /// once, otherwise handlers run while it sounds. A duration outside 32 bits raises Overflow.
    void FMODBeep(double frequency, double durationMs, bool noStop, bool noWait);
    /// Silences the generator where it is in use, and stops the motor where that is.
    void FMODBeepStop();

    /// Chooses the waveform, one of fmod_waveform. "Triangle" on the options window is FallingSaw.
    void ChangeDSPType(std::int32_t newDspType);

    /// The waveform that was chosen last.
    Watched<std::int32_t> DSPType{fmod_waveform::Square};

  private:
    void SetPaused(bool paused);

    FmodToneParts p_;
    /// Rate of the oscillator that the pitch is reckoned with, in Hz.
    double referenceRate_;
};

}  // namespace quavix
