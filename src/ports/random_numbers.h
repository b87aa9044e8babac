// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// Uniform random numbers.
///
/// Thread: the user-interface thread. Never fails.
class RandomNumbers {
  public:
    virtual ~RandomNumbers() = default;
    /// Returns the next number, in [0, 1).
    virtual double Next() = 0;
};

}  // namespace quavix
