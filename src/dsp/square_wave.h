// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace quavix {

struct BandLimitedStep;

/// One square tone as samples, exactly in tune and without aliases.
///
/// The wave starts with its rising edge at the first sample, and edge k lies exactly k * sampleRate / (2 *
/// frequencyHz) samples later, however long the tone is. Harmonics up to a third of the sample rate have
/// their ideal level and fade away above 0.36 of it; aliases below 0.46 of it are removed. The tone fades in
/// and out over 1.5 ms each (half the tone each if it is shorter than 3 ms), inside its own length. Every
/// sample lies in -1..1: the flat parts of the wave are at ±Level, and its overshoot above them.
///
/// Any thread, one at a time. Objects can be copied; a copy continues from the same position.
class SquareWave {
  public:
    /// Height of the flat parts: the greatest at which even a tone reduced to its fundamental (4 / pi times
    /// as high as the square) stays inside -1..1.
    static constexpr float Level = 0.78F;

    /// Makes a tone of `frequencyHz` at `sampleRate` samples per second, `lengthSamples` long. A frequency of
    /// 0 or less, or of half the sample rate or more, or a sample rate of 0 or less gives silence of the same
    /// length; a length of 0 or less gives no tone. The first tone of the process takes 1 ms to make.
    SquareWave(std::int32_t frequencyHz, std::int32_t sampleRate, std::int64_t lengthSamples);

    /// Fills `out` with the next samples, and with zeros after the end. The division of a tone into calls
    /// does not change its samples. Does not allocate, lock or throw; fastest with 64 or more samples per
    /// call.
    void Render(std::span<float> out);

    /// Returns the number of samples of the tone that have not been rendered yet.
    std::int64_t Left() const { return length_ - position_; }

  private:
    void RenderBlock(std::span<float> block) const;
    void Fade(std::span<float> block) const;

    const BandLimitedStep* step_;
    std::int64_t sampleRate_;
    std::int64_t edgesPerSecond_;
    std::int64_t length_;
    std::int64_t fade_;
    std::int64_t position_ = 0;
};

}  // namespace quavix
