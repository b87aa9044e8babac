// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "fmod/fmod_engine.h"
#include "fmod/voice_parameters.h"
#include "ports/random_numbers.h"
#include "shell/event_timer.h"

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

/// The voice: a saw and a little noise pass four parallel filters, the formants, and so sound like a vowel.
/// It has its own engine of the sound library, from Load() to the end of the program. Every failure is shown,
/// and the next steps are still tried.
class VoiceMainForm {
  public:
    explicit VoiceMainForm(const VoiceParts& parts)
        : p_(parts), randomFormantTimer_(parts.Ticks, parts.Handlers, "RandomFormantTimer_Timer", [this] {
              RandomFormantTimer_Timer();
          }) {}

    /// Creates the engine, with its sources paused; a second call does nothing. The library must be loaded.
    void Load(const FmodOutput& output = {});
    bool IsLoaded() const { return isLoaded_; }

    /// Un-pauses the sources, at 100 Hz, and starts the random movement of the formants.
    void StartSources();
    /// Stops the movement of the formants until the next StartSources().
    void StopMoving() { randomFormantTimer_.Stop(); }

    /// Sets the volume, 0 (silent) to 1.
    void ChangeVoiceVol(double newVoiceVol);
    /// Sets the pitch of the voice's source in Hz, rounded to a whole number.
    void ChangeBaseFreq(double newFreq);

    /// Set volumes of 0 to 1, and the cutoff in Hz.
    void ChangeSawVol(double newSawVol);
    void ChangeNoiseVol(double newNoiseVol);
    void ChangeCutoffFreq(double newCutoffFreq);

    /// Sets one formant; missing values stay unchanged. `cutenessCompensate` shifts it by FormantTimbre. An
    /// index of FormantCount or more raises SubscriptOutOfRange.
    void ChangeFormantFreqVol(std::size_t formantIndex, std::optional<double> newFormantFreq,
                              std::optional<std::int32_t> newFormantVol, bool cutenessCompensate);

    /// Return the last set values. An index of FormantCount or more raises SubscriptOutOfRange.
    double FormantFreq(std::size_t formantIndex) const;
    std::int32_t FormantVol(std::size_t formantIndex) const;

    /// Closes and releases the engine, if there is one.
    void VoiceDoShutDownStuff();

    /// Null if there is no engine.
    SoundSystem* VoiceSystem() const { return voiceSystem_; }

    /// Shift of all formants together, in thousandths.
    std::int32_t FormantTimbre = 0;
    /// Greatest random deviation of the formants to either side, in Hz.
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
    std::array<SoundUnit*, FormantCount> formants_{};
    SoundUnit* cutoffDsp_ = nullptr;
    SoundUnit* saw_ = nullptr;
    SoundUnit* noise_ = nullptr;
    SoundChannel* sawPlays_ = nullptr;
    SoundChannel* noisePlays_ = nullptr;
    std::array<double, FormantCount> formantFreq_{};
    std::array<std::int32_t, FormantCount> formantVol_{};
    EventTimer randomFormantTimer_;
    bool inTimer_ = false;
};

}  // namespace quavix
