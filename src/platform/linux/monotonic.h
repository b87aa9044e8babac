// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

inline constexpr std::int64_t NsPerSecond = 1'000'000'000;

/// Nanoseconds of the system's monotonic clock. Any thread, and a process just forked.
std::int64_t MonotonicNs();

}  // namespace quavix
