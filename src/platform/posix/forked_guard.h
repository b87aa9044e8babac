// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <sys/types.h>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// The guard process: a small process that holds a device of the program, and resets it when the program is
/// gone, for any reason.
class ForkedGuard {
  public:
    /// The guard's work, in its own process, with only the device and its end of the channel open, and every
    /// signal ignored. The channel carries whole messages and ends with the program. The process may be
    /// forked from one with threads, so the duty may only make system calls.
    using Duty = std::function<void(int device, int channel)>;

    ForkedGuard() = default;
    ~ForkedGuard() { End(); }
    ForkedGuard(const ForkedGuard&) = delete;
    ForkedGuard& operator=(const ForkedGuard&) = delete;

    /// Starts the guard, replacing an earlier one. `name` is the process's name, at most 15 characters.
    /// Returns false, with the reason in Problem(), if that fails.
    bool Start(const char* name, int device, const Duty& duty);

    /// Sends the guard a message without waiting, so that a stopped guard does not stop the program. Returns
    /// false if the guard is gone, with the reason in Problem() if that is new.
    bool Send(std::int64_t message);

    /// Ends the guard without its work, and waits for its end.
    void End();

    /// Returns the reason of the last failure of Start() or Send().
    const std::string& Problem() const { return problem_; }

  private:
    bool Ready() const;

    pid_t process_ = -1;
    FileDescriptor channel_;
    std::string problem_;
};

}  // namespace quavix
