// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

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

/// The tone generator of the sound card: sets the engine's channel to the tone's pitch and un-pauses it, and
/// pauses it for silence.
class FmodToneGenerator final : public ToneOutput {
  public:
    explicit FmodToneGenerator(FmodToneParts parts) : p_(std::move(parts)) {}

    /// Sounds a tone. It keeps sounding afterwards if its options or the never-silent option ask for it; a
    /// bare frequency always stops.
    void Sound(const Tone& tone) override;

    /// Sounds `frequency` Hz for `durationMs` ms. With `noStop` it keeps sounding afterwards; with `noWait`
    /// the call returns at once, otherwise handlers run meanwhile. A duration outside 32 bits raises
    /// Overflow.
    void FMODBeep(double frequency, double durationMs, bool noStop, bool noWait);
    /// Silences the generator if it is in use, and stops the motor if that is.
    void FMODBeepStop();

    /// Sets the waveform, a SoundWaveform. "Triangle" on the options window is SOUND_FALLING_SAW.
    void ChangeDSPType(std::int32_t newDspType);

    /// The current waveform.
    Watched<std::int32_t> DSPType{SOUND_SQUARE};

  private:
    void SetPaused(bool paused);

    FmodToneParts p_;
};

}  // namespace quavix
