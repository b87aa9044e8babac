// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "midi/hi_res_timer.h"
#include "music/main_fields.h"
#include "ports/timers.h"
#include "shell/event_boundary.h"

namespace quavix {

/// What the timer of a form works with.
struct CycleTimerParts {
    MainFields& Fields;
    Timers& Ticks;
    EventBoundary& Handlers;
    /// Done at each tick; may run handlers.
    std::function<void()> Step;
    /// Done when a step has raised an error, which would come again with every tick.
    std::function<void()> SwitchOff;
};

/// The timer of a form that uses the cycler. Its one entry, disabled at first, ticks with the interval that
/// AlternateTimeText shows; a text that is no number leaves it as it was. Pending window events run between
/// ticks.
class CycleTimer {
  public:
    CycleTimer(CycleTimerParts parts, std::string key);
    CycleTimer(const CycleTimer&) = delete;
    CycleTimer& operator=(const CycleTimer&) = delete;

    void SetEnabled(bool enabled) { cTmr_.SetEnabled(key_, enabled); }
    bool Enabled() const { return cTmr_.Enabled(key_); }
    /// Of the entry, in ms; 0 stands for the shortest.
    std::int32_t Interval() const { return cTmr_.Interval(key_); }

  private:
    void cTmr_Timer(const std::string& sKey);
    void Step();
    void FollowAlternateTime();

    CycleTimerParts p_;
    std::string key_;
    HiResTimer cTmr_;
};

}  // namespace quavix
