// SPDX-License-Identifier: MIT
// Structure of the voice in the sound library:
//
// saw   -> SawChannel   -+
//                        +-> CutoffDSP -> four formants, summed -> VoiceChannel -+-> FinalChannel
// noise -> NoiseChannel -+                                                       |
//                                                                                |
// sibilance -> four filters, one after the other -> SybChannel ------------------+
#include "fmod/voice_main_form.h"

#include "shell/numbers.h"
#include "shell/runtime_error.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

// Sixteen channels, of which the voice uses three.
constexpr std::int32_t Channels = 16;

constexpr double FormantBandwidthOctaves = 1;
constexpr double StartCutoff = 6000;
constexpr double StartResonance = 10;
constexpr double StartSawFrequency = 120;

constexpr float StartSawVolume = 0.15F;
constexpr float StartNoiseVolume = 0.02F;
constexpr float StartVoiceVolume = 0.1F;
constexpr float StartSybVolume = 0.1F;

void CheckIndex(std::size_t formantIndex) {
    if (formantIndex >= FormantCount)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
}

}  // namespace

void VoiceMainForm::Load(const FmodOutput& output) {
    if (isLoaded_)
        return;
    isLoaded_ = true;
    CreateSystem(output);
    SoundGroup* master = nullptr;
    Check(p_.Library.FMOD_System_GetMasterChannelGroup(voiceSystem_, &master));
    finalChannel_ = CreateGroup("FinalChannel");
    Check(p_.Library.FMOD_ChannelGroup_AddGroup(master, finalChannel_));
    CreateFormants();
    CreateSources();
    CreateSibilance();
}

void VoiceMainForm::CreateSystem(const FmodOutput& output) {
    constexpr std::uint32_t NormalFlags = 0;
    Check(p_.Library.FMOD_System_Create(&voiceSystem_));
    std::uint32_t version = 0;
    Check(p_.Library.FMOD_System_GetVersion(voiceSystem_, &version));
    p_.Errors.RequireVersion(version, "version");
    // Drops the first system, which is free of cost until it is initialised.
    Check(p_.Library.FMOD_System_Create(&voiceSystem_));
    Check(p_.Library.FMOD_System_SetSoftwareChannels(voiceSystem_, Channels));
    if (output.Output != SOUND_OUTPUT_DEVICE)
        Check(p_.Library.FMOD_System_SetOutput(voiceSystem_, output.Output));
    Check(p_.Library.FMOD_System_Init(voiceSystem_, Channels, NormalFlags, output.Extra()));
}

void VoiceMainForm::CreateFormants() {
    for (SoundUnit*& formant : formants_) {
        formant = CreateUnit(SOUND_EQUALISER);
        SetParameter(formant, SOUND_EQUALISER_BANDWIDTH, FormantBandwidthOctaves);
    }
    voiceChannel_ = CreateGroup("VoiceChannel");
    for (SoundUnit* formant : formants_)
        Check(p_.Library.FMOD_ChannelGroup_AddDSP(voiceChannel_, formant));
    Check(p_.Library.FMOD_ChannelGroup_AddGroup(finalChannel_, voiceChannel_));

    cutoffDsp_ = CreateUnit(SOUND_LOW_PASS);
    for (SoundUnit* formant : formants_)
        Check(p_.Library.FMOD_DSP_AddInput(formant, cutoffDsp_));
    SetParameter(cutoffDsp_, SOUND_LOW_PASS_CUTOFF, StartCutoff);
    SetParameter(cutoffDsp_, SOUND_LOW_PASS_RESONANCE, StartResonance);
    Check(p_.Library.FMOD_DSP_SetBypass(cutoffDsp_, true));
    Check(p_.Library.FMOD_ChannelGroup_AddDSP(voiceChannel_, cutoffDsp_));
}

void VoiceMainForm::CreateSources() {
    sawChannel_ = CreateGroup("SawChannel");
    noiseChannel_ = CreateGroup("NoiseChannel");
    Check(p_.Library.FMOD_ChannelGroup_AddGroup(voiceChannel_, sawChannel_));
    Check(p_.Library.FMOD_ChannelGroup_AddGroup(voiceChannel_, noiseChannel_));
    saw_ = CreateUnit(SOUND_OSCILLATOR);
    noise_ = CreateUnit(SOUND_OSCILLATOR);
    SetParameter(saw_, SOUND_OSCILLATOR_RATE, StartSawFrequency);
    sawPlays_ = PlayPaused(saw_);
    noisePlays_ = PlayPaused(noise_);
    Check(p_.Library.FMOD_Channel_SetChannelGroup(sawPlays_, sawChannel_));
    Check(p_.Library.FMOD_Channel_SetChannelGroup(noisePlays_, noiseChannel_));
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(sawChannel_, StartSawVolume));
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(noiseChannel_, StartNoiseVolume));
    SetParameter(saw_, SOUND_OSCILLATOR_TYPE, SOUND_FALLING_SAW);
    SetParameter(noise_, SOUND_OSCILLATOR_TYPE, SOUND_NOISE);
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(voiceChannel_, StartVoiceVolume));
}

void VoiceMainForm::CreateSibilance() {
    constexpr std::size_t SybFilters = 4;
    SoundGroup* const sybChannel = CreateGroup("SybChannel");
    std::array<SoundUnit*, SybFilters> filters{};
    for (SoundUnit*& filter : filters)
        filter = CreateUnit(SOUND_EQUALISER);
    Check(p_.Library.FMOD_ChannelGroup_AddDSP(sybChannel, filters[0]));
    for (std::size_t i = 1; i < SybFilters; ++i)
        Check(p_.Library.FMOD_DSP_AddInput(filters[i], filters[i - 1]));
    Check(p_.Library.FMOD_ChannelGroup_AddGroup(finalChannel_, sybChannel));
    SoundUnit* const sybNoise = CreateUnit(SOUND_OSCILLATOR);
    Check(p_.Library.FMOD_Channel_SetChannelGroup(PlayPaused(sybNoise), sybChannel));
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(sybChannel, StartSybVolume));
    SetParameter(sybNoise, SOUND_OSCILLATOR_TYPE, SOUND_TRIANGLE);
}

SoundUnit* VoiceMainForm::CreateUnit(std::int32_t type) {
    SoundUnit* unit = nullptr;
    Check(p_.Library.FMOD_System_CreateDSPByType(voiceSystem_, type, &unit));
    return unit;
}

SoundGroup* VoiceMainForm::CreateGroup(const char* name) {
    SoundGroup* group = nullptr;
    Check(p_.Library.FMOD_System_CreateChannelGroup(voiceSystem_, name, &group));
    return group;
}

SoundChannel* VoiceMainForm::PlayPaused(SoundUnit* unit) {
    SoundChannel* channel = nullptr;
    Check(p_.Library.FMOD_System_PlayDSP(voiceSystem_, SOUND_CHANNEL_REUSE, unit, true, &channel));
    return channel;
}

bool VoiceMainForm::SetParameter(SoundUnit* unit, std::int32_t index, double value) {
    return Check(p_.Library.FMOD_DSP_SetParameter(unit, index, static_cast<float>(value)));
}

void VoiceMainForm::StartSources() {
    constexpr double StartFrequency = 100;
    constexpr std::int32_t TimerMs = 50;
    Check(p_.Library.FMOD_Channel_SetPaused(sawPlays_, false));
    Check(p_.Library.FMOD_Channel_SetPaused(noisePlays_, false));
    ChangeBaseFreq(StartFrequency);
    if (!randomFormantTimer_.IsRunning())
        randomFormantTimer_.Start(TimerMs);
}

void VoiceMainForm::ChangeVoiceVol(double newVoiceVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(voiceChannel_, static_cast<float>(newVoiceVol)));
}

void VoiceMainForm::ChangeBaseFreq(double newFreq) {
    SetParameter(saw_, SOUND_OSCILLATOR_RATE, ToInt32(newFreq));
}

void VoiceMainForm::ChangeSawVol(double newSawVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(sawChannel_, static_cast<float>(newSawVol)));
}

void VoiceMainForm::ChangeNoiseVol(double newNoiseVol) {
    Check(p_.Library.FMOD_ChannelGroup_SetVolume(noiseChannel_, static_cast<float>(newNoiseVol)));
}

void VoiceMainForm::ChangeCutoffFreq(double newCutoffFreq) {
    SetParameter(cutoffDsp_, SOUND_LOW_PASS_CUTOFF, newCutoffFreq);
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
    // Below SilentVolume the gain is negative; the library limits it to its lowest gain.
    const double gain = ((volume - SilentVolume) / VolumeRange * 100) / 100 * HighestGain;
    SetParameter(formants_[formantIndex], SOUND_EQUALISER_CENTRE, applied);
    SetParameter(formants_[formantIndex], SOUND_EQUALISER_GAIN, gain);
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
    // A tick may come while a message of the previous one is open.
    if (inTimer_)
        return;
    bool good = false;
    // An error has been shown. Repeating it 20 times a second would prevent switching the voice off.
    const AtScopeEnd stopAfterErrors([&] {
        if (!good)
            StopMoving();
    });
    const ScopedFlag inTimer(inTimer_);
    p_.Errors.ShowTogether([&] { good = MoveFormants(); });
}

/// Moves each formant randomly around its set frequency. The gain is the formant's raw volume, unlike the one
/// that ChangeFormantFreqVol() computes. Returns true if all calls succeeded.
bool VoiceMainForm::MoveFormants() {
    bool good = true;
    for (std::size_t i = 0; i < FormantCount; ++i) {
        const double frequency = PlusMinusRandom(ShiftedByTimbre(formantFreq_[i]), MaxRandomFormantFreq);
        good = SetParameter(formants_[i], SOUND_EQUALISER_CENTRE, frequency) && good;
        good = SetParameter(formants_[i], SOUND_EQUALISER_GAIN, formantVol_[i]) && good;
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
