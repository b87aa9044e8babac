// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>
#include <cstdint>

namespace quavix {

/// SIGINT, SIGTERM and SIGHUP as something to wait for: their handler only writes a byte into a pipe. A
/// signal that is ignored (as nohup has it) stays ignored. One object at a time; the signals get their
/// earlier effect back at its end.
class TerminationSignals {
  public:
    /// Raises std::system_error when there is no pipe to be had.
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// A descriptor that becomes readable, and stays so, once one of the signals has come.
    int Descriptor() const { return readEnd_; }

    /// Sleeps until the monotonic clock shows `deadlineNs` nanoseconds or one of the signals comes; returns
    /// whether one has come.
    bool SleepUntil(std::int64_t deadlineNs) const;

  private:
    static constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP};

    int readEnd_ = -1;
    std::array<struct sigaction, Signals.size()> earlier_{};
};

}  // namespace quavix
