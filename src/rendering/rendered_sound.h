// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <stdexcept>

#include "dsp/wav.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// The sound could not be made, or not be written.
class RenderError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The mono WAV file that a rendering writes. Raises RenderError when it cannot be written any further.
class SoundFile {
  public:
    /// `rate` is the frames per second. The stream must outlive the file.
    SoundFile(std::ostream& out, std::int32_t rate) : wav_(out, rate, 1), rate_(rate) {}

    /// Prepares the file for about `seconds` of sound, so that it can grow beyond 4 GiB where it has to. To
    /// be called before anything is written.
    void Expect(double seconds);

    void Write(std::span<const float> samples) { Check(wav_.Write(samples)); }
    /// Writes `frames` of silence; 0 or less is none.
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

/// The part of a rendering that makes its sound, on simulated time. Raises RenderError when that fails.
class RenderedSound {
  public:
    RenderedSound() = default;
    virtual ~RenderedSound() = default;
    RenderedSound(const RenderedSound&) = delete;
    RenderedSound& operator=(const RenderedSound&) = delete;

    /// Makes the sound up to this moment. To be called before anything of the sound changes.
    virtual void CatchUp() = 0;

    /// Makes the sound up to this moment, which is the end, and writes what is left of it.
    virtual void Finish() = 0;
};

}  // namespace quavix
