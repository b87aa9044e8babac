// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "music/main_fields.h"
#include "ports/timers.h"
#include "shell/event_boundary.h"

namespace quavix {

/// Dependencies of CycleTimer. All must outlive it.
struct CycleTimerParts {
    const SongFields& Song;
    const ProgramState& State;
    Timers& Ticks;
    EventBoundary& Handlers;
    /// Done at each tick; may run handlers.
    std::function<void()> Step;
    /// Done when a step has raised an error, which would come again with every tick.
    std::function<void()> SwitchOff;
};

/// The timer of a form that uses the cycler, disabled at first. It ticks with the interval that the text of
/// the alternate time names; a text that is no number leaves it as it was. Pending window events run between
/// ticks.
class CycleTimer {
  public:
    explicit CycleTimer(CycleTimerParts parts);
    ~CycleTimer() { SetEnabled(false); }
    CycleTimer(const CycleTimer&) = delete;
    CycleTimer& operator=(const CycleTimer&) = delete;

    /// Enabled anew, it counts from the start.
    void SetEnabled(bool enabled);
    bool Enabled() const { return timer_ != 0; }
    /// In ms; 0 stands for the shortest.
    std::int32_t Interval() const { return intervalMs_; }

  private:
    void cTmr_Timer();
    void Step();
    void FollowAlternateTime();

    CycleTimerParts p_;
    std::int32_t intervalMs_;
    /// Runs only while this is enabled.
    Timers::Id timer_ = 0;
};

}  // namespace quavix
