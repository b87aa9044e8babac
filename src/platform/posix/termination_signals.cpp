// SPDX-License-Identifier: MIT
#include "platform/common/termination_signals.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

#include "platform/common/monotonic.h"
#include "platform/posix/file_descriptor.h"

namespace quavix {
namespace {

constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP};

// A global, because a signal handler has no other access.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int) {
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = write(writeEnd.load(), &byte, 1);
    errno = error;
}

}  // namespace

struct TerminationSignals::Parts {
    /// End of the pipe into which the signals' handler writes a byte.
    FileDescriptor ReadEnd;
    std::array<struct sigaction, Signals.size()> Earlier{};
};

TerminationSignals::TerminationSignals() : parts_(std::make_unique<Parts>()) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    parts_->ReadEnd = FileDescriptor(ends[0]);
    writeEnd = ends[1];
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals[i], nullptr, &parts_->Earlier[i]);
        if (parts_->Earlier[i].sa_handler != SIG_IGN)
            sigaction(Signals[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    for (std::size_t i = 0; i < Signals.size(); ++i)
        sigaction(Signals[i], &parts_->Earlier[i], nullptr);
    close(writeEnd.exchange(-1));
}

WaitHandle TerminationSignals::Handle() const {
    return parts_->ReadEnd.Get();
}

bool TerminationSignals::SleepUntil(std::int64_t deadlineNs) const {
    pollfd descriptor{parts_->ReadEnd.Get(), POLLIN, 0};
    for (;;) {
        const std::int64_t left = std::max<std::int64_t>(deadlineNs - MonotonicNs(), 0);
        const timespec timeout{static_cast<time_t>(left / NsPerSecond),
                               static_cast<long>(left % NsPerSecond)};
        const int ready = ppoll(&descriptor, 1, &timeout, nullptr);
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

}  // namespace quavix
