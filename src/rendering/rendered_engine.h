// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "fmod/fmod_engine.h"
#include "ports/sound_library.h"
#include "rendering/rendered_sound.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// An engine of the sound library on simulated time. It mixes into a temporary file, block by block as time
/// passes, whose first channel is copied into the rendering at the end. Silent until Begin().
class RenderedEngine : public RenderedSound {
  public:
    RenderedEngine(SoundLibrary& library, SimulatedTime& time, SoundFile& out);
    ~RenderedEngine() override;

    /// Returns the output to initialise the engine with.
    FmodOutput Output() const { return {SOUND_OUTPUT_WAV_BY_UPDATE, fileName_}; }

    /// Begins to record, at the current time, an engine initialised for this; releases it at the end.
    void Begin(SoundSystem* system);

    void CatchUp() override;
    void Finish() override;

  private:
    void Mix(std::int64_t blocks);
    void Check(SoundLibrary::Result result) const;
    std::int64_t FramesNow() const { return FrameAt(time_.Now() - start_, rate_); }

    SoundLibrary& library_;
    SimulatedTime& time_;
    SoundFile& out_;
    std::string fileName_;
    SoundSystem* system_ = nullptr;
    std::int64_t start_ = 0;
    std::int64_t blockFrames_ = 1;
    std::int64_t rate_ = 1;
    std::int64_t blocks_ = 0;
};

}  // namespace quavix
