// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

#include "ports/random_numbers.h"

namespace quavix {

/// Random numbers that are the same for the same seed, on every system.
class SeededRandomNumbers : public RandomNumbers {
  public:
    explicit SeededRandomNumbers(std::uint32_t seed) : generator_(seed) {}

    double Next() override {
        constexpr double Values = 4294967296.0;  // of the generator: 2^32
        return static_cast<double>(generator_()) / Values;
    }

  private:
    std::mt19937 generator_;
};

/// Random numbers that differ from start to start.
class SystemRandomNumbers : public SeededRandomNumbers {
  public:
    SystemRandomNumbers() : SeededRandomNumbers(std::random_device{}()) {}
};

}  // namespace quavix
