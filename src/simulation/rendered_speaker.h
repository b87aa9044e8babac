// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "dsp/wav.h"
#include "ports/speaker.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// The sound could not be written any further.
class RenderError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A speaker on simulated time that writes what would be heard, exact to the sample: the tone of a moment t
/// starts at frame t × rate. Time without a tone is silence. Raises RenderError when the writer refuses.
class RenderedSpeaker : public Speaker {
  public:
    /// `out` is a mono writer at `sampleRate`.
    RenderedSpeaker(SimulatedTime& time, WavWriter& out, std::int32_t sampleRate)
        : time_(time), out_(out), sampleRate_(sampleRate) {}

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override { return {.InUse = "WAV file"}; }

    /// Writes the silence since the last tone.
    void CatchUp();

  private:
    std::int64_t FrameNow() const;
    void Check(bool written) const;

    SimulatedTime& time_;
    WavWriter& out_;
    std::int32_t sampleRate_;
};

}  // namespace quavix
