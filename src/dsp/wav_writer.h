// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>

namespace quavix {

/// Writes 16-bit PCM sound as a RIFF/WAVE stream while it is being made.
///
/// A frame is one sample for each channel. A file holds what fits into 4 GiB with its header, about 12 hours
/// of mono at 48,000 Hz. Any thread, one at a time; the stream must outlive the writer. The destructor does
/// not finish the file.
class WavWriter {
  public:
    /// Writes the header where `out` stands (opened as binary). `sampleRate` is 1 or more, `channels`
    /// 1..32767, and a second of sound less than 4 GiB: anything else writes nothing, and every call fails.
    /// The header states `totalFrames` where they are known ahead; more than fit (or fewer than none) fail at
    /// once: nothing is written, and TooLong() holds for too many. Without them it says "unknown"
    /// (0xFFFFFFFF) until Finish() puts the true sizes in.
    WavWriter(std::ostream& out, std::int32_t sampleRate, std::int32_t channels,
              std::optional<std::int64_t> totalFrames = std::nullopt);

    /// Appends frames, the samples of a frame one after the other. -1..1 becomes -32767..32767, rounded to
    /// the nearest; values outside are clipped, and what is not a number is 0. False, with nothing written,
    /// where the samples are no whole number of frames, where the file would grow too long (then TooLong()),
    /// after Finish() and after an error; false when the stream fails, and what it holds then is anyone's
    /// guess.
    bool Write(std::span<const float> samples);

    /// Appends `frames` of silence; 0 or less is none. Fails as Write() does.
    bool WriteSilence(std::int64_t frames);

    /// Completes the file: states the true sizes in the header unless they stand there already, and flushes.
    /// A stream that cannot seek keeps "unknown" as its sizes, which is no error; that it stated other sizes
    /// ahead is one. A file that had grown too long is completed with what it holds. A second call does
    /// nothing and returns the same.
    bool Finish();

    /// Whether frames were refused because the file would have passed 4 GiB.
    bool TooLong() const { return tooLong_; }

    /// Frames written so far.
    std::int64_t Frames() const { return frames_; }

  private:
    bool Reserve(std::int64_t frames);
    bool FixSizes();

    std::ostream& out_;
    std::int64_t sampleRate_;
    std::int64_t channels_;
    std::optional<std::int64_t> statedFrames_;
    std::ostream::pos_type start_ = -1;
    std::int64_t frames_ = 0;
    bool tooLong_ = false;
    bool failed_ = false;
    std::optional<bool> finished_;
};

}  // namespace quavix
