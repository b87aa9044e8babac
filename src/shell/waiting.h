// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "ports/clock.h"
#include "ports/event_pump.h"
#include "shell/currency.h"
#include "shell/debug_log.h"

namespace quavix {

/// The only wait of the program.
class Waiting {
  public:
    Waiting(Clock& clock, EventPump& pump) : clock_(clock), pump_(pump) {}

    /// Waits `interval` milliseconds (0 or more, or -1: for ever) while running pending window events, any of
    /// which may change any state. Returns 258 when the time is up, or the result of the last system wait if
    /// that was neither a timeout nor input. `handleCount`, 0 or 1, is the number of handles to wait for as
    /// well.
    std::int32_t MsgWaitObj(std::int32_t interval, WaitHandle handle = 0, std::int32_t handleCount = 0);

    /// Runs pending events without waiting.
    void DoEvents() { pump_.DoEvents(); }

  private:
    Clock& clock_;
    EventPump& pump_;
};

/// Reads the counter frequency and logs it. It is held as a Currency, so that counter readings held the same
/// way can be divided by it to give seconds.
Currency ReadTickFreq(Clock& clock, DebugLog& log);

}  // namespace quavix
