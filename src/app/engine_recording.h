// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

#include "dsp/wav.h"
#include "fmod/fmod_engine.h"
#include "ports/sound_library.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// What an engine of the sound library sounds on simulated time: the engine mixes into a file of its own,
/// block by block as time passes, and what it wrote is brought over in the end. Raises RenderError when that
/// can't be done.
class EngineRecording {
  public:
    EngineRecording(SoundLibrary& library, SimulatedTime& time);
    ~EngineRecording();
    EngineRecording(const EngineRecording&) = delete;
    EngineRecording& operator=(const EngineRecording&) = delete;

    /// How the engine is to be initialised.
    FmodOutput Output() const { return {FmodOutput::WavFileByUpdate, fileName_}; }

    /// Begins with the engine that was initialised so, at this moment.
    void Begin(SoundSystem* system);

    /// Lets the engine mix what has passed; to be called before anything of the sound changes.
    void CatchUp();

    /// Closes the engine and writes its sound up to this moment.
    void Finish(WavWriter& out, std::int32_t sampleRate);

  private:
    void Mix(std::int64_t blocks);
    void Check(SoundLibrary::Result result) const;
    std::int64_t FramesNow() const;

    SoundLibrary& library_;
    SimulatedTime& time_;
    std::string fileName_;
    std::ifstream file_;
    SoundSystem* system_ = nullptr;
    std::int64_t start_ = 0;
    std::int64_t blockFrames_ = 1;
    std::int64_t rate_ = 1;
    std::int64_t blocks_ = 0;
};

}  // namespace quavix
