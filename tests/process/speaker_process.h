// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// A tone event as it arrived: hertz, 0 for off, and when.
struct ArrivedTone {
    std::int32_t Hz = 0;
    std::int64_t AtNs = 0;
};

/// Reads what is written to an event device, of which a pipe stands in for the device.
class DevicePipe {
  public:
    DevicePipe();

    /// The end that is written to; to be given away, or the pipe has no end.
    FileDescriptor TakeWriteEnd() { return std::move(writeEnd_); }

    /// Waits for the next tone event; none once nobody holds the device any more. Anything else that arrives,
    /// and half a minute in which nothing does, fails the test.
    std::optional<ArrivedTone> Next();

    /// The hertz of everything up to the end.
    std::vector<std::int32_t> Rest();

  private:
    FileDescriptor readEnd_;
    FileDescriptor writeEnd_;
};

/// The speaker child in a process group of its own, playing on a pipe. Killed at the end if it still runs.
class SpeakerProcess {
  public:
    explicit SpeakerProcess(const std::string& how, const std::string& lockFolder = {});
    ~SpeakerProcess();
    SpeakerProcess(const SpeakerProcess&) = delete;
    SpeakerProcess& operator=(const SpeakerProcess&) = delete;

    DevicePipe Device;

    /// Sends a signal to the whole process group, as a terminal does.
    void Signal(int signal) const;

    /// Waits until it has stopped or ended, and returns the status of waitpid().
    int Wait();

    /// 'T' while it is stopped; see proc(5).
    char State() const;

    /// The process ids of its children.
    std::vector<pid_t> Children() const;

  private:
    pid_t process_;
    bool ended_ = false;
};

}  // namespace quavix
