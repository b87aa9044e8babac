// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quavix {

/// Brings sound from one sample rate to another with a windowed sinc (J. O. Smith, "Digital Audio Resampling
/// Home Page"). What the lower of the two rates can hold up to 0.9 of its half keeps its level within 0.05
/// dB; what would come back as an alias is 80 dB down or more. Equal rates change nothing at all.
class Resampler {
  public:
    /// Rates in Hz, 1 or more.
    Resampler(std::int32_t fromRate, std::int32_t toRate);

    /// Takes samples and puts those that are complete behind `out`, the first one at the time of the first
    /// one taken.
    void Process(std::span<const float> in, std::vector<float>& out);

    /// The rest of them, as if silence followed.
    void Finish(std::vector<float>& out);

  private:
    float SampleAt(std::int64_t whole, double fraction) const;

    std::int64_t fromRate_;
    std::int64_t toRate_;
    /// Half the width of the kernel, in samples taken.
    std::int64_t halfWidth_;
    /// Right half of the kernel, in steps of 1 / StepsPerSample.
    std::vector<float> kernel_;
    std::vector<float> history_;
    /// Which sample taken stands at the front of the history.
    std::int64_t historyStart_;
    std::int64_t taken_ = 0;
    std::int64_t given_ = 0;
};

}  // namespace quavix
