// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace quavix {

/// Periodic timers whose ticks run as handlers of the program.
///
/// Thread: the user-interface thread. Ticks run inside EventPump::DoEvents() or the main loop, never inside
/// the calls below. They follow an absolute timetable, so that delays don't add up; a tick is late by a
/// fraction of a millisecond while the thread is free. A tick that comes due while a handler holds the
/// thread, or while a tick of the same timer waits, runs once afterwards; further missed ticks are dropped.
class Timers {
  public:
    /// Identifies a running timer; 0 is none.
    using Id = std::int64_t;

    virtual ~Timers() = default;

    /// Calls `tick` every `intervalMs` milliseconds (at least 1) from now on, until Stop().
    virtual Id Start(std::int32_t intervalMs, std::function<void()> tick) = 0;

    /// Changes the interval of a running timer (values below 1 count as 1): the next tick comes that many
    /// milliseconds after the last one was due, or at once if that is past. Setting the same interval changes
    /// nothing. An unknown id is ignored.
    virtual void SetInterval(Id timer, std::int32_t intervalMs) = 0;

    /// Stops a timer; no tick of it runs afterwards. An unknown id is ignored.
    virtual void Stop(Id timer) = 0;
};

}  // namespace quavix
