// SPDX-License-Identifier: MIT
#include "platform/common/wait_handles.h"

#include <ctime>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <system_error>
#include <unistd.h>

#include "platform/common/monotonic.h"
#include "platform/posix/file_descriptor.h"

namespace quavix {
namespace {

WaitHandle Checked(int descriptor, const char* call) {
    if (descriptor < 0)
        throw std::system_error(LastError(), call);
    return descriptor;
}

int DescriptorOf(WaitHandle handle) {
    return static_cast<int>(handle);
}

timespec ToTimespec(std::int64_t ns) {
    return {.tv_sec = static_cast<time_t>(ns / NsPerSecond), .tv_nsec = static_cast<long>(ns % NsPerSecond)};
}

}  // namespace

std::optional<std::uint32_t> Signalled(std::span<const WaitHandle> handles) {
    for (std::size_t i = 0; i < handles.size(); ++i) {
        pollfd state{.fd = DescriptorOf(handles[i]), .events = POLLIN, .revents = 0};
        if (poll(&state, 1, 0) > 0)
            return static_cast<std::uint32_t>(i);
    }
    return std::nullopt;
}

WakeSignal::WakeSignal() : handle_(Checked(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")) {}

WakeSignal::~WakeSignal() {
    close(DescriptorOf(handle_));
}

void WakeSignal::Raise() {
    // If the counter is full, the signal is already raised.
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(DescriptorOf(handle_), &one, sizeof one);
}

void WakeSignal::Clear() {
    std::uint64_t count = 0;
    [[maybe_unused]] const auto taken = read(DescriptorOf(handle_), &count, sizeof count);
}

TickTimer::TickTimer()
    : handle_(Checked(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK), "timerfd_create")) {}

TickTimer::~TickTimer() {
    close(DescriptorOf(handle_));
}

void TickTimer::Start(std::int64_t firstNs, std::int64_t intervalNs) {
    const itimerspec times{.it_interval = ToTimespec(intervalNs), .it_value = ToTimespec(firstNs)};
    timerfd_settime(DescriptorOf(handle_), TFD_TIMER_ABSTIME, &times, nullptr);
}

std::int64_t TickTimer::Take() {
    std::uint64_t expirations = 0;
    if (read(DescriptorOf(handle_), &expirations, sizeof expirations) != sizeof expirations)
        return 0;
    return static_cast<std::int64_t>(expirations);
}

}  // namespace quavix
