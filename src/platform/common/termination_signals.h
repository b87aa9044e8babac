// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "ports/event_pump.h"

namespace quavix {

/// The system's requests to end the program (SIGINT, SIGTERM and SIGHUP) as something to wait for. A signal
/// that is ignored (as nohup has it) stays ignored. One object at a time; the signals get their earlier
/// effect back at its end. Each system implements this class.
class TerminationSignals {
  public:
    /// Raises std::system_error if the system can not give what it takes.
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// A handle that is signalled, and stays so, once one of the signals has come.
    WaitHandle Handle() const;

    /// Sleeps until the monotonic clock shows `deadlineNs` nanoseconds or one of the signals comes; returns
    /// whether one has come.
    bool SleepUntil(std::int64_t deadlineNs) const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace quavix
