// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <stdexcept>

#include "dsp/wav.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// Raised if the sound could not be made or written.
class RenderError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The mono WAV file of a rendering. Raises RenderError if it can't be written.
class SoundFile {
  public:
    /// `rate` is in frames per second. The stream must outlive the file.
    SoundFile(std::ostream& out, std::int32_t rate) : wav_(out, rate, 1), rate_(rate) {}

    /// Prepares the file for about `seconds` of sound, so that it can exceed 4 GiB if necessary. Has to be
    /// called before the first write.
    void Expect(double seconds);

    void Write(std::span<const float> samples) { Check(wav_.Write(samples)); }
    /// Writes `frames` frames of silence; none for 0 or less.
    void WriteSilence(std::int64_t frames) { Check(wav_.WriteSilence(frames)); }
    /// Completes the file.
    void Finish() { Check(wav_.Finish()); }

    std::int32_t Rate() const { return rate_; }
    std::int64_t Frames() const { return wav_.Frames(); }

  private:
    void Check(bool written) const;

    WavWriter wav_;
    std::int32_t rate_;
};

/// Returns the frame nearest to a time in counts of SimulatedTime, 0 or more, at `rate` frames per second.
std::int64_t FrameAt(std::int64_t counts, std::int64_t rate);

/// The sound source of a rendering, on simulated time. Raises RenderError on failure.
class RenderedSound {
  public:
    RenderedSound() = default;
    RenderedSound(const RenderedSound&) = delete;
    RenderedSound& operator=(const RenderedSound&) = delete;
    virtual ~RenderedSound() = default;

    /// Makes the sound up to the current time. Has to be called before any change of the sound.
    virtual void CatchUp() = 0;

    /// Makes the sound up to the current time, which is the end, and writes the rest.
    virtual void Finish() = 0;
};

}  // namespace quavix
