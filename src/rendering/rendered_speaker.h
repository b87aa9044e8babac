// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "ports/speaker.h"
#include "rendering/rendered_sound.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// A speaker on simulated time that writes its sound, exact to the sample: a tone at time t starts at frame t
/// × rate. Time without a tone is silence.
class RenderedSpeaker : public Speaker, public RenderedSound {
  public:
    RenderedSpeaker(SimulatedTime& time, SoundFile& out) : time_(time), out_(out) {}

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override { return {.InUse = "WAV file"}; }

    /// Writes silence a second at a time: waits are short, and it may well come later.
    void CatchUp() override {
        if (FramesToGo() >= out_.Rate())
            Finish();
    }
    void Finish() override { out_.WriteSilence(FramesToGo()); }

  private:
    std::int64_t FramesToGo() const { return FrameAt(time_.Now(), out_.Rate()) - out_.Frames(); }

    SimulatedTime& time_;
    SoundFile& out_;
};

}  // namespace quavix
