// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ctime>

#include "platform/common/monotonic.h"

namespace quavix {

/// Nanoseconds of the wall clock since 1970.
inline std::int64_t WallClockNs() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec * NsPerSecond + now.tv_nsec;
}

}  // namespace quavix
