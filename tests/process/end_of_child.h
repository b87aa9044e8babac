// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/file_descriptor.h"
#include "process/patience.h"

namespace quavix::test {

/// Waits until a child has ended, and returns the status of waitpid(). Kills a child that still runs after
/// `mostMs`, so that the test fails instead of waiting forever.
inline int WaitForEnd(pid_t child, int mostMs = PatienceMs) {
    const FileDescriptor end(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
    pollfd waiting{end.Get(), POLLIN, 0};
    int ready = -1;
    while (end.Get() >= 0 && (ready = poll(&waiting, 1, mostMs)) < 0 && errno == EINTR) {
    }
    if (ready == 0)
        kill(child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

}  // namespace quavix::test
