// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

#include "ports/random_numbers.h"

namespace quavix {

/// A source of random numbers that depend only on the seed, on every system.
class SeededRandomNumbers : public RandomNumbers {
  public:
    explicit SeededRandomNumbers(std::uint32_t seed) : generator_(seed) {}

    double Next() override {
        constexpr double Values = 4294967296.0;  // range of the generator, 2^32
        return static_cast<double>(generator_()) / Values;
    }

  private:
    std::mt19937 generator_;
};

}  // namespace quavix
