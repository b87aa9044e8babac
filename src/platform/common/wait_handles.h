// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "ports/event_pump.h"

namespace quavix {

/// Returns the index of the first signalled handle; none if no handle is signalled. Does not wait.
std::optional<std::uint32_t> Signalled(std::span<const WaitHandle> handles);

/// A signal that any thread may raise, and that a wait for handles sees until it is cleared.
class WakeSignal {
  public:
    /// Raises std::system_error if the system has none left.
    WakeSignal();
    ~WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    /// Raises the signal. Never blocks or locks, so real-time threads may call it.
    void Raise();
    void Clear();

    WaitHandle Handle() const { return handle_; }

  private:
    WaitHandle handle_;
};

/// A system timer whose handle is signalled from a tick until the tick is taken. It is more precise than the
/// toolkit's timers, which are up to 1 ms late.
class TickTimer {
  public:
    /// Raises std::system_error if the system has none left.
    TickTimer();
    ~TickTimer();
    TickTimer(const TickTimer&) = delete;
    TickTimer& operator=(const TickTimer&) = delete;

    /// Ticks from `firstNs` of the monotonic clock on, every `intervalNs`. Forgets ticks not taken yet.
    void Start(std::int64_t firstNs, std::int64_t intervalNs);

    /// Returns the number of ticks since the last call; 0 for none. Does not wait.
    std::int64_t Take();

    WaitHandle Handle() const { return handle_; }

  private:
    WaitHandle handle_;
};

}  // namespace quavix
