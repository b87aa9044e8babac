// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace quavix {

/// Something the system can signal (on Linux a file descriptor that becomes readable).
using WaitHandle = std::intptr_t;

/// The wait for input and the run of pending window events.
///
/// Thread: the user-interface thread. Handlers run only inside these two calls, and any handler may run
/// there: whoever calls them believes nothing it knew before.
class EventPump {
  public:
    /// Result of a wait whose time is up.
    static constexpr std::uint32_t WaitTimedOut = 258;
    /// A timeout that never comes.
    static constexpr std::uint32_t Forever = 0xFFFFFFFF;

    virtual ~EventPump() = default;

    /// Blocks, without using the processor, until one of `handles` is signalled (result: its index), input is
    /// pending (result: handles.size()), or `timeoutMs` milliseconds have passed (result: WaitTimedOut).
    /// Resolution 1 ms or better; a timeout of 0 returns at once. Input that has been handled during the wait
    /// counts as pending, and so may the event system's own doings. `handles` is only read during the call.
    virtual std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) = 0;

    /// Runs the handlers of everything that is pending now (input, repaints, timers), then returns.
    virtual void DoEvents() = 0;
};

}  // namespace quavix
