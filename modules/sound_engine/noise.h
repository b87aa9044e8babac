// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace quavix::sound_engine {

/// Random values of -1..1 at a rate of their own, joined by straight lines. The same `seed` gives the same
/// noise.
class Noise {
  public:
    explicit Noise(std::uint32_t seed);

    /// How many new values there are to a sample; 0 or more.
    void SetStep(double valuesPerSample);

    /// The next sample.
    float Next();

  private:
    float Draw();

    static constexpr std::uint64_t One = std::uint64_t{1} << 32;

    std::uint32_t state_;
    float from_;
    float to_;
    // From the value before to the next: 2^32 is the whole way.
    std::uint64_t place_ = 0;
    std::uint64_t step_ = One;
};

}  // namespace quavix::sound_engine
