// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "ports/playback_parts.h"
#include "ports/tone_outputs.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// Stands behind outputs and playback parts at once: writes each call to the timeline.
class RecordedOutputs : public Portamento, public BeatHook {
  public:
    RecordedOutputs(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void SetWantedPitch(std::int32_t frequency) override;
    void StartSound() override;
    void LineStarts() override;

    /// Runs at every line's beat hook.
    std::function<void()> OnLine;

  private:
    void Record(const std::string& event) { timeline_.Record(time_.Now(), event); }

    SimulatedTime& time_;
    Timeline& timeline_;
};

}  // namespace quavix
