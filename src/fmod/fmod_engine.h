// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "fmod/fmod_errors.h"
#include "ports/sound_library.h"
#include "shell/debug_log.h"

namespace quavix {

/// Destination of a sound engine's sound.
struct FmodOutput {
    static constexpr std::int32_t BestDevice = SOUND_OUTPUT_DEVICE;
    /// A WAV file, one block per update.
    static constexpr std::int32_t WavFileByUpdate = SOUND_OUTPUT_WAV_BY_UPDATE;

    std::int32_t Output = BestDevice;
    /// Name of the WAV file.
    std::string FileName{};

    /// Returns the file's name for FMOD_System_Init(), which does not change it; null for none.
    void* Extra() const { return FileName.empty() ? nullptr : const_cast<char*>(FileName.c_str()); }
};

/// Kinds of units, as the sound library numbers them.
namespace fmod_unit {
inline constexpr std::int32_t Oscillator = SOUND_OSCILLATOR;
inline constexpr std::int32_t LowPass = SOUND_LOW_PASS;
inline constexpr std::int32_t Equaliser = SOUND_EQUALISER;
}  // namespace fmod_unit

/// The units' parameters, as the sound library numbers them.
namespace fmod_parameter {
inline constexpr std::int32_t OscillatorType = SOUND_OSCILLATOR_TYPE;
inline constexpr std::int32_t OscillatorRate = SOUND_OSCILLATOR_RATE;
inline constexpr std::int32_t LowPassCutoff = SOUND_LOW_PASS_CUTOFF;
inline constexpr std::int32_t LowPassResonance = SOUND_LOW_PASS_RESONANCE;
inline constexpr std::int32_t EqualiserCentre = SOUND_EQUALISER_CENTRE;
inline constexpr std::int32_t EqualiserBandwidth = SOUND_EQUALISER_BANDWIDTH;
inline constexpr std::int32_t EqualiserGain = SOUND_EQUALISER_GAIN;
}  // namespace fmod_parameter

/// Waveforms of an oscillator, as the sound library numbers them.
namespace fmod_waveform {
inline constexpr std::int32_t Sine = SOUND_SINE;
inline constexpr std::int32_t Square = SOUND_SQUARE;
inline constexpr std::int32_t FallingSaw = SOUND_FALLING_SAW;
inline constexpr std::int32_t Triangle = SOUND_TRIANGLE;
inline constexpr std::int32_t Noise = SOUND_NOISE;
}  // namespace fmod_waveform

/// Reuses the channel that is passed in; without one, takes a free channel.
inline constexpr std::int32_t FmodChannelReuse = SOUND_CHANNEL_REUSE;

/// The main window's engine of the sound library: one oscillator on one channel, which plays from start-up to
/// shutdown and is only paused and un-paused. Every failure is shown, and the next steps are still tried.
class FmodEngine {
  public:
    FmodEngine(SoundLibrary& library, FmodErrors& errors, DebugLog& log)
        : library_(library), errors_(errors), log_(log) {}

    /// Creates the engine with its oscillator, silent. The library must be loaded.
    void Start(const FmodOutput& output = {});

    /// Closes and releases the engine, if there is one.
    void Stop();

    /// Returns the delay until a change is heard, in milliseconds, and logs its parts. Returns 0 if the
    /// library reports no sample rate. Raises Overflow if the total buffer size exceeds 32 bits.
    std::int32_t GetFMODBufferLength();

    /// Null if there is no engine.
    SoundSystem* System() const { return system_; }
    SoundChannel* Channel() const { return channel_; }
    SoundUnit* Oscillator() const { return oscillator_; }

  private:
    SoundLibrary& library_;
    FmodErrors& errors_;
    DebugLog& log_;
    SoundSystem* system_ = nullptr;
    SoundChannel* channel_ = nullptr;
    SoundUnit* oscillator_ = nullptr;
};

}  // namespace quavix
