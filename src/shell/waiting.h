// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "ports/clock.h"
#include "ports/event_pump.h"
#include "shell/currency.h"
#include "shell/debug_log.h"

namespace quavix {

/// The one way the program waits.
class Waiting {
  public:
    Waiting(Clock& clock, EventPump& pump) : clock_(clock), pump_(pump) {}

    /// Waits `interval` milliseconds (0 or more, or -1: for ever) while running pending window events, any of
    /// which may change anything. Returns 258 when the time is up, or the result of the last system wait when
    /// that was neither a timeout nor arrived input. `handleCount` is 0 or 1: how many handles to wait for as
    /// well.
    std::int32_t MsgWaitObj(std::int32_t interval, WaitHandle handle = 0, std::int32_t handleCount = 0);

    /// Runs what is pending without waiting.
    void DoEvents() { pump_.DoEvents(); }

  private:
    Clock& clock_;
    EventPump& pump_;
};

/// Reads the counter frequency (held as a Currency, so that counter readings held the same way divide to
/// seconds) and logs it.
Currency ReadTickFreq(Clock& clock, DebugLog& log);

}  // namespace quavix
