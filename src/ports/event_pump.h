// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace quavix {

/// Something the system can signal (on Linux a file descriptor that becomes readable).
using WaitHandle = std::intptr_t;

/// The wait for input, and the handling of pending window events.
///
/// Thread: the user-interface thread. Handlers run only inside these two calls. Any handler may run there, so
/// all state may have changed when a call returns.
class EventPump {
  public:
    /// Result of a wait that timed out.
    static constexpr std::uint32_t WaitTimedOut = 258;
    /// Timeout of an endless wait.
    static constexpr std::uint32_t Forever = 0xFFFFFFFF;

    virtual ~EventPump() = default;

    /// Blocks, without using the processor, until one of `handles` is signalled (result: its index), input is
    /// pending (result: handles.size()), or `timeoutMs` milliseconds have passed (result: WaitTimedOut).
    /// Resolution 1 ms or better; a timeout of 0 returns at once. Input that was handled during the wait
    /// counts as pending, and internal events of the event system may too. `handles` is only read during the
    /// call.
    virtual std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) = 0;

    /// Runs the handlers of all pending input, repaints and timers, then returns.
    virtual void DoEvents() = 0;
};

}  // namespace quavix
