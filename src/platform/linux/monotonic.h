// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// Nanoseconds of the system's monotonic clock. Any thread, and a process just forked.
std::int64_t MonotonicNs();

}  // namespace quavix
