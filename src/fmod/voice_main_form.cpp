// SPDX-License-Identifier: MIT
#include "fmod/voice_main_form.h"

#include <exception>

#include "shell/numbers.h"
#include "shell/runtime_error.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

void CheckIndex(std::size_t formantIndex) {
    if (formantIndex >= FormantCount)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
}

}  // namespace

void VoiceMainForm::StartSources() {
    constexpr double StartFrequency = 100;
    constexpr std::int32_t TimerMs = 50;
    Check(p_.Library.FMOD_Channel_SetPaused(sawPlays_, false));
    Check(p_.Library.FMOD_Channel_SetPaused(noisePlays_, false));
    ChangeBaseFreq(StartFrequency);
    if (randomFormantTimer_ == 0) {
        randomFormantTimer_ = p_.Ticks.Start(TimerMs, [this] {
            p_.Handlers.Run("RandomFormantTimer_Timer", [this] { RandomFormantTimer_Timer(); });
        });
    }
}

void VoiceMainForm::StopMoving() {
    p_.Ticks.Stop(randomFormantTimer_);
    randomFormantTimer_ = 0;
}

void VoiceMainForm::ChangeVoiceVol(double newVoiceVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(voiceChannel_, static_cast<float>(newVoiceVol)));
}

void VoiceMainForm::ChangeBaseFreq(double newFreq) {
    SetParameter(saw_, fmod_parameter::OscillatorRate, ToInt32(newFreq));
}

void VoiceMainForm::ChangeSawVol(double newSawVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(sawChannel_, static_cast<float>(newSawVol)));
}

void VoiceMainForm::ChangeNoiseVol(double newNoiseVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(noiseChannel_, static_cast<float>(newNoiseVol)));
}

void VoiceMainForm::ChangeCutoffFreq(double newCutoffFreq) {
    SetParameter(cutoffDsp_, fmod_parameter::LowPassCutoff, newCutoffFreq);
}

void VoiceMainForm::ChangeFormantFreqVol(std::size_t formantIndex, std::optional<double> newFormantFreq,
                                         std::optional<std::int32_t> newFormantVol, bool cutenessCompensate) {
    constexpr double SilentVolume = 40;
    constexpr double VolumeRange = 60;
    constexpr double HighestGain = 3.5;
    CheckIndex(formantIndex);
    double& frequency = formantFreq_[formantIndex];
    std::int32_t& volume = formantVol_[formantIndex];
    frequency = newFormantFreq.value_or(frequency);
    volume = newFormantVol.value_or(volume);
    const double applied = cutenessCompensate ? ShiftedByTimbre(frequency) : frequency;
    // Below the silent volume it is negative; the library takes its own lowest gain then.
    const double gain = ((volume - SilentVolume) / VolumeRange * 100) / 100 * HighestGain;
    SetParameter(formants_[formantIndex], fmod_parameter::EqualiserCentre, applied);
    SetParameter(formants_[formantIndex], fmod_parameter::EqualiserGain, gain);
}

double VoiceMainForm::FormantFreq(std::size_t formantIndex) const {
    CheckIndex(formantIndex);
    return formantFreq_[formantIndex];
}

std::int32_t VoiceMainForm::FormantVol(std::size_t formantIndex) const {
    CheckIndex(formantIndex);
    return formantVol_[formantIndex];
}

double VoiceMainForm::ShiftedByTimbre(double frequency) const {
    constexpr double Thousandths = 1000;
    return (FormantTimbre / Thousandths + 1) * frequency;
}

double VoiceMainForm::PlusMinusRandom(double startVal, double maxRandomRange) {
    return startVal - maxRandomRange + p_.Random.Next() * 2 * maxRandomRange;
}

void VoiceMainForm::RandomFormantTimer_Timer() {
    // While a message stands open, the next tick comes.
    if (inTimer_)
        return;
    bool good = false;
    try {
        const ScopedFlag inTimer(inTimer_);
        p_.Errors.ShowTogether([&] { good = MoveFormants(); });
    } catch (const std::exception&) {
        StopMoving();
        throw;
    }
    // The user has been told. Twenty times a second would leave no time to switch the voice off.
    if (!good)
        StopMoving();
}

/// Moves each formant away from where it was set. The gain is the formant's volume as it is, unlike the one
/// that ChangeFormantFreqVol() works out. Returns whether all went well.
bool VoiceMainForm::MoveFormants() {
    bool good = true;
    for (std::size_t i = 0; i < FormantCount; ++i) {
        const double frequency = PlusMinusRandom(ShiftedByTimbre(formantFreq_[i]), MaxRandomFormantFreq);
        good = SetParameter(formants_[i], fmod_parameter::EqualiserCentre, frequency) && good;
        good = SetParameter(formants_[i], fmod_parameter::EqualiserGain, formantVol_[i]) && good;
    }
    return good;
}

void VoiceMainForm::VoiceDoShutDownStuff() {
    const LogBlock block(p_.Log, "VoiceMainForm.VoiceDoShutDownStuff()");
    StopMoving();
    if (voiceSystem_ != nullptr) {
        p_.Log.LogText("Closing and releasing FMOD system 'VoiceSystem'");
        Check(p_.Library.FMOD_System_Close(voiceSystem_));
        Check(p_.Library.FMOD_System_Release(voiceSystem_));
        voiceSystem_ = nullptr;
    }
}

}  // namespace quavix
