// SPDX-License-Identifier: MIT
#include "fmod/fmod_tone_generator.h"

#include <algorithm>

#include "shell/numbers.h"

namespace quavix {
namespace {

/// Rate of the oscillator in Hz from which the pitch is computed.
constexpr double ReferenceRate = 4000;

}  // namespace

void FmodToneGenerator::Sound(const Tone& tone) {
    const bool mustStop = tone.Options.NoteIsFrequency || tone.Options.SpecificStop;
    const bool keepSounding = !mustStop && (tone.Options.SpecificContinuous || p_.Output.DoNotShutUpFMOD);
    FMODBeep(tone.WholeFrequency(), tone.DurationMs, keepSounding, tone.Options.FMODNoWait);
}

void FmodToneGenerator::FMODBeep(double frequency, double durationMs, bool noStop, bool noWait) {
    constexpr double Tuning = 1.088;
    constexpr double ChannelRate = 44100;
    const LogBlock block(p_.Log, "FMODBeep()", "FMODBeep(FREQUENCY:{}, DURATION: {}, NOSTOP:{}) - START",
                         NumberText(frequency), NumberText(durationMs), LogFlag(noStop));
    // Convert first: an overflow after un-pausing would leave the tone sounding.
    const std::int32_t milliseconds = ToInt32(durationMs);
    const double channelFrequency = static_cast<float>(frequency) * Tuning * (ChannelRate / ReferenceRate);
    p_.Errors.ERRCHECK(
        p_.Library.FMOD_Channel_SetFrequency(p_.Engine.Channel(), static_cast<float>(channelFrequency)));
    SetPaused(false);
    if (!noWait) {
        p_.Log.Text("MsgWaitObj {}", milliseconds);
        p_.Wait.MsgWaitObj(std::max(milliseconds, 0));  // below 0 it would never end
    }
    if (!noStop)
        SetPaused(true);
}

void FmodToneGenerator::FMODBeepStop() {
    if (p_.Mods.UseFMOD.InUse)
        SetPaused(true);
    if (p_.Mods.UseMotor.InUse)
        p_.SendString("#0p1470");
}

void FmodToneGenerator::ChangeDSPType(std::int32_t newDspType) {
    constexpr float Volume = 0.18F;
    // The library's square wave sounds at half its rate.
    constexpr float SquareRate = 8000;
    const float rate = newDspType == SOUND_SQUARE ? SquareRate : static_cast<float>(ReferenceRate);
    p_.Errors.ERRCHECK(p_.Library.FMOD_DSP_SetParameter(p_.Engine.Oscillator(), SOUND_OSCILLATOR_RATE, rate));
    p_.Errors.ERRCHECK(p_.Library.FMOD_Channel_SetVolume(p_.Engine.Channel(), Volume));
    p_.Errors.ERRCHECK(p_.Library.FMOD_DSP_SetParameter(p_.Engine.Oscillator(), SOUND_OSCILLATOR_TYPE,
                                                        static_cast<float>(newDspType)));
    DSPType = newDspType;
}

void FmodToneGenerator::SetPaused(bool paused) {
    p_.Errors.ERRCHECK(p_.Library.FMOD_Channel_SetPaused(p_.Engine.Channel(), paused));
}

}  // namespace quavix
