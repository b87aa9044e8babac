// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include "ports/speaker.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// A speaker that writes its tones to the timeline and advances the time by their length.
class SimulatedSpeaker : public Speaker, private Recorder {
  public:
    using Recorder::Recorder;

    void Beep(std::int32_t frequency, std::int32_t durationMs) override {
        Record(fmt::format("speaker {} Hz {} ms", frequency, durationMs));
        if (durationMs > 0)
            time_.Block(durationMs);
    }
    SpeakerStatus Status() const override { return Now; }

    /// Status that the speaker reports.
    SpeakerStatus Now{.InUse = "PC speaker"};
};

}  // namespace quavix
