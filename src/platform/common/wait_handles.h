// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "ports/event_pump.h"

namespace quavix {

/// The index of the first handle that is signalled; none if no handle is. Does not wait.
std::optional<std::uint32_t> Signalled(std::span<const WaitHandle> handles);

/// A signal that any thread may raise, and that a wait for handles sees until it is cleared.
class WakeSignal {
  public:
    /// Raises std::system_error if the system has none left.
    WakeSignal();
    ~WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    /// Never blocks, and takes no lock: also from threads of real time.
    void Raise();
    void Clear();

    WaitHandle Handle() const { return handle_; }

  private:
    WaitHandle handle_;
};

/// A timer of the system's whose handle is signalled from a tick until the tick is taken. It is more exact
/// than the toolkit's timers, which are late by up to a millisecond.
class TickTimer {
  public:
    /// Raises std::system_error if the system has none left.
    TickTimer();
    ~TickTimer();
    TickTimer(const TickTimer&) = delete;
    TickTimer& operator=(const TickTimer&) = delete;

    /// Ticks from `firstNs` of the monotonic clock on, each `intervalNs`. Ticks not taken are forgotten.
    void Start(std::int64_t firstNs, std::int64_t intervalNs);

    /// Ticks that have come since they were last taken; 0 for none. Does not wait.
    std::int64_t Take();

    WaitHandle Handle() const { return handle_; }

  private:
    WaitHandle handle_;
};

}  // namespace quavix
