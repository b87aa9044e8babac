// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace quavix {

/// Periodic timers whose ticks run as handlers of the program.
///
/// Thread: the user-interface thread. Ticks run inside EventPump::DoEvents() or the main loop, never inside
/// Start() or Stop(). A tick that comes due while another handler holds the thread runs once afterwards;
/// missed ticks are not made up.
class Timers {
  public:
    /// A running timer; 0 is none.
    using Id = std::int64_t;

    virtual ~Timers() = default;

    /// Calls `tick` every `intervalMs` milliseconds (at least 1) from now on, until Stop().
    virtual Id Start(std::int32_t intervalMs, std::function<void()> tick) = 0;

    /// Stops a timer; no tick of it runs afterwards. An unknown id is ignored.
    virtual void Stop(Id timer) = 0;
};

}  // namespace quavix
