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
    /// A SoundOutput.
    std::int32_t Output = SOUND_OUTPUT_DEVICE;
    /// Name of the WAV file.
    std::string FileName{};

    /// Returns the file's name for FMOD_System_Init(), which does not change it; null for none.
    void* Extra() const { return FileName.empty() ? nullptr : const_cast<char*>(FileName.c_str()); }
};

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
