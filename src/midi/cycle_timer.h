// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "music/main_fields.h"
#include "shell/event_timer.h"

namespace quavix {

/// Dependencies of CycleTimer. All must outlive it.
struct CycleTimerParts {
    const SongFields& Song;
    const ProgramState& State;
    Timers& Ticks;
    EventBoundary& Handlers;
    /// Called at each tick; may run handlers.
    std::function<void()> Step;
    /// Called when a step has raised an error, which would otherwise recur with every tick.
    std::function<void()> SwitchOff;
};

/// The timer of a form that uses the cycler, initially disabled. It ticks at the interval in the text of the
/// alternate time; a text that is no number leaves the interval unchanged. Pending window events run between
/// ticks.
class CycleTimer {
  public:
    explicit CycleTimer(CycleTimerParts parts);

    /// Enables or disables the timer. When enabled again, it starts a full interval.
    void SetEnabled(bool enabled);
    bool Enabled() const { return timer_.IsRunning(); }
    /// Returns the interval in ms; 0 stands for the shortest.
    std::int32_t Interval() const { return intervalMs_; }

  private:
    void cTmr_Timer();
    void FollowAlternateTime();

    CycleTimerParts p_;
    std::int32_t intervalMs_ = 2;  // until the alternate time is a number
    EventTimer timer_;
};

}  // namespace quavix
