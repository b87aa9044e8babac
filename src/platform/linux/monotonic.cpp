// SPDX-License-Identifier: MIT
#include "platform/common/monotonic.h"

#include <cerrno>
#include <sys/prctl.h>
#include <time.h>

namespace quavix {

std::int64_t MonotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * NsPerSecond + now.tv_nsec;
}

void SleepUntil(std::int64_t deadlineNs) {
    timespec until{};
    until.tv_sec = static_cast<time_t>(deadlineNs / NsPerSecond);
    until.tv_nsec = static_cast<long>(deadlineNs % NsPerSecond);
    // Without this the kernel may end a sleep 50 us late, which is audible in a series of tones.
    prctl(PR_SET_TIMERSLACK, 1UL);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
    }
    prctl(PR_SET_TIMERSLACK, 0UL);  // restores the thread's default
}

}  // namespace quavix
