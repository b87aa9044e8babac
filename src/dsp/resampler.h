// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quavix {

/// Converts sound from one sample rate to another with a windowed sinc (J. O. Smith, "Digital Audio
/// Resampling Home Page"). Frequencies up to 0.9 of half the lower rate keep their level within 0.05 dB;
/// aliases are at least 80 dB down. If the rates are equal, samples stay unchanged.
class Resampler {
  public:
    /// Rates in Hz, 1 or more.
    Resampler(std::int32_t fromRate, std::int32_t toRate);

    /// Takes samples and appends completed ones to `out`. The first sample out has the time of the first one
    /// in.
    void Process(std::span<const float> in, std::vector<float>& out);

    /// Appends the remaining samples, as if silence followed.
    void Finish(std::vector<float>& out);

  private:
    float SampleAt(std::int64_t whole, double fraction) const;

    std::int64_t fromRate_;
    std::int64_t toRate_;
    /// Half the width of the kernel, in input samples.
    std::int64_t halfWidth_;
    /// Right half of the kernel, in steps of 1 / StepsPerSample.
    std::vector<float> kernel_;
    std::vector<float> history_;
    /// Number of the input sample at the front of the history.
    std::int64_t historyStart_;
    std::int64_t taken_ = 0;
    std::int64_t given_ = 0;
};

}  // namespace quavix
