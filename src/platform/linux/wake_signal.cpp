// SPDX-License-Identifier: MIT
#include "platform/common/wake_signal.h"

#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quavix {

WakeSignal::WakeSignal() : counter_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!counter_)
        throw std::system_error(LastError(), "eventfd");
}

void WakeSignal::Raise() {
    // A counter that is full is raised already.
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(counter_.Get(), &one, sizeof one);
}

void WakeSignal::Clear() {
    std::uint64_t count = 0;
    [[maybe_unused]] const auto taken = read(counter_.Get(), &count, sizeof count);
}

}  // namespace quavix
