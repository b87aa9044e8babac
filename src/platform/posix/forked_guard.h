// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// A small process of its own that holds a device of the program's, to put it in order when the program is
/// gone, however it went.
class ForkedGuard {
  public:
    /// The guard's work, in its own process, with the device and its end of the channel and nothing else open
    /// and with every signal ignored. The channel carries whole messages and ends with the program. The
    /// process may have been forked from one with threads, so this makes system calls and nothing else.
    using Duty = std::function<void(int device, int channel)>;

    ForkedGuard() = default;
    ~ForkedGuard() { End(); }
    ForkedGuard(const ForkedGuard&) = delete;
    ForkedGuard& operator=(const ForkedGuard&) = delete;

    /// Starts the guard, in place of an earlier one. `name` is the process's name, of 15 characters at most.
    /// False: it could not be started, and Problem() says why.
    bool Start(const char* name, int device, const Duty& duty);

    /// The program's end of the channel; -1 when no guard is there.
    int Channel() const { return channel_.Get(); }

    /// Ends the guard, which does its work no more, and waits for its end.
    void End();

    const std::string& Problem() const { return problem_; }

  private:
    bool Ready() const;

    pid_t process_ = -1;
    FileDescriptor channel_;
    std::string problem_;
};

}  // namespace quavix
