// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "ports/event_pump.h"

namespace quavix {

/// Makes the system's requests to end the program (SIGINT, SIGTERM and SIGHUP) waitable. An ignored signal
/// (as with nohup) stays ignored. Only one object at a time; its destructor restores the earlier handlers.
/// Each system implements this class.
class TerminationSignals {
  public:
    /// Raises std::system_error if the system lacks the resources.
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Returns a handle that is signalled, and stays so, after one of the signals.
    WaitHandle Handle() const;

    /// Sleeps until the monotonic clock shows `deadlineNs` nanoseconds or one of the signals arrives. Returns
    /// true after a signal.
    bool SleepUntil(std::int64_t deadlineNs) const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace quavix
