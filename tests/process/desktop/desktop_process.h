// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/posix/file_descriptor.h"
#include "support/temporary_folder.h"

namespace quavix {

/// The desktop child in a process of its own, with a pipe for its speaker's device. Killed at the end if it
/// still runs.
class DesktopProcess {
  public:
    /// `timeZone` is the TZ of its environment; if it is empty, the TZ of this process applies.
    explicit DesktopProcess(const std::vector<std::string>& arguments, const std::string& timeZone = {});
    ~DesktopProcess();
    DesktopProcess(const DesktopProcess&) = delete;
    DesktopProcess& operator=(const DesktopProcess&) = delete;

    void Signal(int signal) const;

    /// Waits until it has ended, and returns the status of waitpid().
    int Wait();

    /// A tone that its speaker was told to make: hertz, 0 for off, and the wall clock's nanoseconds then.
    struct Tone {
        std::int32_t Hz = 0;
        std::int64_t AtNs = 0;
    };

    /// Returns all that the process has written to standard output, up to its end.
    std::string Output() const;

    /// Returns the next tone; none if the process has ended, or half a minute has passed without a tone.
    std::optional<Tone> NextTone() const;

  private:
    test::TemporaryFolder stateHome_;
    FileDescriptor device_;
    FileDescriptor output_;
    pid_t process_ = -1;
};

/// A time of day to start at, some seconds from now, in a time zone where midnight is far away.
struct StartTime {
    /// At least 1 and at most 2 more than `secondsFromNow`.
    explicit StartTime(int secondsFromNow);

    std::vector<std::string> ChildsArguments() const;

    std::string TimeZone;
    std::int64_t AtNs = 0;
};

}  // namespace quavix
