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
    /// The library's numbers: 0 the best device; 5 a WAV file, a block for each update.
    static constexpr std::int32_t BestDevice = 0;
    static constexpr std::int32_t WavFileByUpdate = 5;

    std::int32_t Output = BestDevice;
    /// The WAV file.
    std::string FileName{};
};

/// Kinds of units, as the sound library numbers them.
namespace fmod_unit {
inline constexpr std::int32_t Oscillator = 2;
inline constexpr std::int32_t LowPass = 3;
inline constexpr std::int32_t Equaliser = 10;
}  // namespace fmod_unit

/// The units' parameters, as the sound library numbers them.
namespace fmod_parameter {
inline constexpr std::int32_t OscillatorType = 0;
inline constexpr std::int32_t OscillatorRate = 1;
inline constexpr std::int32_t LowPassCutoff = 0;
inline constexpr std::int32_t LowPassResonance = 1;
inline constexpr std::int32_t EqualiserCentre = 0;
inline constexpr std::int32_t EqualiserBandwidth = 1;
inline constexpr std::int32_t EqualiserGain = 2;
}  // namespace fmod_parameter

/// Waveforms of an oscillator, as the sound library numbers them.
namespace fmod_waveform {
inline constexpr std::int32_t Sine = 0;
inline constexpr std::int32_t Square = 1;
inline constexpr std::int32_t FallingSaw = 3;
inline constexpr std::int32_t Triangle = 4;
inline constexpr std::int32_t Noise = 5;
}  // namespace fmod_waveform

/// Reuse the channel that is passed in; none stands for a free one.
inline constexpr std::int32_t FmodChannelReuse = -2;

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
