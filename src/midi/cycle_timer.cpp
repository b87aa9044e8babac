// SPDX-License-Identifier: MIT
#include "midi/cycle_timer.h"

#include <cmath>
#include <limits>
#include <utility>

#include "shell/numbers.h"

namespace quavix {

CycleTimer::CycleTimer(CycleTimerParts parts)
    : p_(std::move(parts)), timer_(p_.Ticks, p_.Handlers, "cTmr_Timer", [this] { cTmr_Timer(); }) {
    // A mistyped interval must not run to its end, which may be days away.
    p_.Song.AlternateTime.State().Watch(
        [this, before = p_.Song.AlternateTime.Text()](const SettingState& now) mutable {
            if (std::exchange(before, now.Text) != now.Text && Enabled())
                FollowAlternateTime();
        });
}

void CycleTimer::SetEnabled(bool enabled) {
    if (!enabled)
        timer_.Stop();
    else if (!Enabled())
        timer_.Start(intervalMs_);
}

void CycleTimer::cTmr_Timer() {
    // Continuous pulses would leave no gap for a start that waits until all tones have ended.
    if (p_.State.StartIsHeldUp)
        return;
    try {
        p_.Step();
    } catch (const std::exception&) {
        p_.SwitchOff();
        throw;
    }
    FollowAlternateTime();
}

void CycleTimer::FollowAlternateTime() {
    const std::string& text = p_.Song.AlternateTime.Text();
    const double interval = RoundHalfEven(Val(text));
    if (!IsNumeric(text) || std::abs(interval) > std::numeric_limits<std::int32_t>::max())
        return;
    intervalMs_ = static_cast<std::int32_t>(interval);
    timer_.SetInterval(intervalMs_);
}

}  // namespace quavix
