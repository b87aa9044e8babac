// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
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

/// Watches signalled handles, beside window events.
///
/// Thread: the user-interface thread. A handler runs as a window event whenever its handle is signalled, so
/// it has to reset the signal.
class HandleWatch {
  public:
    /// Identifies a running watch; 0 is none.
    using Id = std::int64_t;

    virtual ~HandleWatch() = default;

    /// Calls `signalled` whenever `handle` is signalled, until Unwatch(). The caller owns the handle and must
    /// keep it open meanwhile.
    virtual Id Watch(WaitHandle handle, std::function<void()> signalled) = 0;

    /// Ends a watch; its handler does not run afterwards. An unknown id is ignored.
    virtual void Unwatch(Id watch) = 0;
};

}  // namespace quavix
