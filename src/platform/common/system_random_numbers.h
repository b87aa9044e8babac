// SPDX-License-Identifier: MIT
#pragma once

#include <random>

#include "shell/seeded_random_numbers.h"

namespace quavix {

/// Random numbers that differ from start to start.
class SystemRandomNumbers : public SeededRandomNumbers {
  public:
    SystemRandomNumbers() : SeededRandomNumbers(std::random_device{}()) {}
};

}  // namespace quavix
