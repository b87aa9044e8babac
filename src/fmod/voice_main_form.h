// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "fmod/fmod_engine.h"
#include "fmod/voice_parameters.h"
#include "ports/random_numbers.h"
#include "ports/timers.h"
#include "shell/event_boundary.h"

namespace quavix {

/// Dependencies of VoiceMainForm. All must outlive it.
struct VoiceParts {
    SoundLibrary& Library;
    FmodErrors& Errors;
    Timers& Ticks;
    RandomNumbers& Random;
    EventBoundary& Handlers;
    DebugLog& Log;
};

/// The voice: a saw and a little noise go through four filters side by side, the formants, and so sound like
/// a vowel. It has an engine of the sound library to itself, which lives from Load() to the end of the
/// program. Every failure is shown, and what comes next is tried all the same.
class VoiceMainForm {
  public:
    explicit VoiceMainForm(VoiceParts parts) : p_(parts) {}
    VoiceMainForm(const VoiceMainForm&) = delete;
    VoiceMainForm& operator=(const VoiceMainForm&) = delete;

    /// Sets the engine up, with its sources paused; a second call does nothing. The library must be loaded.
    void Load(const FmodOutput& output = {});
    bool IsLoaded() const { return isLoaded_; }

    /// Un-pauses the sources, at 100 Hz, and lets the formants move.
    void StartSources();
    /// The formants stand still until the next StartSources().
    void StopMoving();

    /// Volume, 0 (silent) to 1.
    void ChangeVoiceVol(double newVoiceVol);
    /// Pitch of the voice's source; taken as a whole number of Hz.
    void ChangeBaseFreq(double newFreq);

    /// Volumes are 0 to 1, the cutoff is in Hz.
    void ChangeSawVol(double newSawVol);
    void ChangeNoiseVol(double newNoiseVol);
    void ChangeCutoffFreq(double newCutoffFreq);

    /// Sets one formant; what is not given stays as it was. `cutenessCompensate` shifts it by FormantTimbre.
    /// An index of FormantCount or more raises SubscriptOutOfRange.
    void ChangeFormantFreqVol(std::size_t formantIndex, std::optional<double> newFormantFreq,
                              std::optional<std::int32_t> newFormantVol, bool cutenessCompensate);

    /// Return what was set last. Indexes from FormantCount on raise SubscriptOutOfRange.
    double FormantFreq(std::size_t formantIndex) const;
    std::int32_t FormantVol(std::size_t formantIndex) const;

    /// Closes and releases the engine, where there is one.
    void VoiceDoShutDownStuff();

    /// Null where there is no engine.
    SoundSystem* VoiceSystem() const { return voiceSystem_; }

    /// Shift of all formants together, in thousandths.
    std::int32_t FormantTimbre = 0;
    /// How far the formants move at random to either side, in Hz.
    double MaxRandomFormantFreq = 0;

  private:
    void CreateSystem(const FmodOutput& output);
    void CreateFormants();
    void CreateSources();
    void CreateSibilance();
    SoundUnit* CreateUnit(std::int32_t type);
    SoundGroup* CreateGroup(const char* name);
    SoundChannel* PlayPaused(SoundUnit* unit);
    bool SetParameter(SoundUnit* unit, std::int32_t index, double value);
    bool Check(SoundLibrary::Result result) { return p_.Errors.ERRCHECK(result); }
    double ShiftedByTimbre(double frequency) const;
    double PlusMinusRandom(double startVal, double maxRandomRange);
    void RandomFormantTimer_Timer();
    bool MoveFormants();

    VoiceParts p_;
    bool isLoaded_ = false;
    SoundSystem* voiceSystem_ = nullptr;
    SoundGroup* finalChannel_ = nullptr;
    SoundGroup* voiceChannel_ = nullptr;
    SoundGroup* sawChannel_ = nullptr;
    SoundGroup* noiseChannel_ = nullptr;
    SoundGroup* sybChannel_ = nullptr;
    std::array<SoundUnit*, FormantCount> formants_{};
    SoundUnit* cutoffDsp_ = nullptr;
    SoundUnit* saw_ = nullptr;
    SoundUnit* noise_ = nullptr;
    SoundChannel* sawPlays_ = nullptr;
    SoundChannel* noisePlays_ = nullptr;
    SoundUnit* sybNoiseDsp_ = nullptr;
    std::array<double, FormantCount> formantFreq_{};
    std::array<std::int32_t, FormantCount> formantVol_{};
    Timers::Id randomFormantTimer_ = 0;
    bool inTimer_ = false;
};

}  // namespace quavix
