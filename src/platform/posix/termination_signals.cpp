// SPDX-License-Identifier: MIT
#include "platform/common/termination_signals.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

// A signal handler has nowhere else to look.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int) {
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = write(writeEnd.load(), &byte, 1);
    errno = error;
}

}  // namespace

TerminationSignals::TerminationSignals() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    readEnd_ = ends[0];
    writeEnd = ends[1];
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals[i], nullptr, &earlier_[i]);
        if (earlier_[i].sa_handler != SIG_IGN)
            sigaction(Signals[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    for (std::size_t i = 0; i < Signals.size(); ++i)
        sigaction(Signals[i], &earlier_[i], nullptr);
    close(writeEnd.exchange(-1));
    close(readEnd_);
}

bool TerminationSignals::SleepUntil(std::int64_t deadlineNs) const {
    pollfd descriptor{readEnd_, POLLIN, 0};
    for (;;) {
        const std::int64_t left = std::max<std::int64_t>(deadlineNs - MonotonicNs(), 0);
        const timespec timeout{left / NsPerSecond, left % NsPerSecond};
        const int ready = ppoll(&descriptor, 1, &timeout, nullptr);
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

}  // namespace quavix
