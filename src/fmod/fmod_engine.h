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
    /// A block for each update.
    static constexpr std::int32_t WavFileByUpdate = SOUND_OUTPUT_WAV_BY_UPDATE;

    std::int32_t Output = BestDevice;
    /// The WAV file.
    std::string FileName{};

    /// The file's name as FMOD_System_Init() takes it, which does not change it; null for none.
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

/// Reuse the channel that is passed in; none stands for a free one.
inline constexpr std::int32_t FmodChannelReuse = SOUND_CHANNEL_REUSE;

/// The main window's engine of the sound library: one oscillator, which plays on one channel from start-up to
/// shutdown and is only paused and un-paused. Every failure is shown, and what comes next is tried all the
/// same.
class FmodEngine {
  public:
    FmodEngine(SoundLibrary& library, FmodErrors& errors, DebugLog& log)
        : library_(library), errors_(errors), log_(log) {}

    /// Creates the engine with its oscillator, silent. The library must be loaded.
    void Start(const FmodOutput& output = {});

    /// Closes and releases the engine, where there is one.
    void Stop();

    /// How long a change takes to be heard, in milliseconds; written into the log with what it comes from. 0
    /// where the library doesn't know its sample rate. Raises Overflow where the buffers together pass 32
    /// bits.
    std::int32_t GetFMODBufferLength();

    /// Null where there is no engine.
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
