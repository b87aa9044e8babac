// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "ports/timers.h"
#include "shell/event_boundary.h"

namespace quavix {

/// A timer whose ticks are event handlers, stopped at first and in the end. Runs only while it is needed, so
/// that the program can sleep otherwise.
class EventTimer {
  public:
    /// `handler` is the name of the handler `tick` for the log, a literal.
    EventTimer(Timers& timers, EventBoundary& handlers, const char* handler, std::function<void()> tick)
        : timers_(timers), tick_(handlers.Wrap(handler, std::move(tick))) {}
    ~EventTimer() { Stop(); }
    EventTimer(const EventTimer&) = delete;
    EventTimer& operator=(const EventTimer&) = delete;

    bool IsRunning() const { return timer_ != 0; }

    /// Starts the timer, or starts it again: ticks every `intervalMs` milliseconds from now on.
    void Start(std::int32_t intervalMs) {
        Stop();
        timer_ = timers_.Start(intervalMs, tick_);
    }
    void Stop() { timers_.Stop(std::exchange(timer_, 0)); }
    /// Changes the interval as Timers::SetInterval() does, if the timer is running.
    void SetInterval(std::int32_t intervalMs) { timers_.SetInterval(timer_, intervalMs); }

  private:
    Timers& timers_;
    std::function<void()> tick_;
    Timers::Id timer_ = 0;
};

}  // namespace quavix
