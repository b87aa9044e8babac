// SPDX-License-Identifier: MIT
#include "platform/linux/monotonic.h"

#include <ctime>

namespace quavix {

std::int64_t MonotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * NsPerSecond + now.tv_nsec;
}

}  // namespace quavix
