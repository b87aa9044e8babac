// SPDX-License-Identifier: MIT
#include "midi/cycle_timer.h"

#include <cmath>
#include <limits>
#include <utility>

#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr std::int32_t FirstIntervalMs = 2;

}  // namespace

CycleTimer::CycleTimer(CycleTimerParts parts) : p_(std::move(parts)), intervalMs_(FirstIntervalMs) {
    // A mistyped interval must not run to its end, which may be days away.
    p_.Song.AlternateTime.State().Watch(
        [this, before = p_.Song.AlternateTime.Text()](const SettingState& now) mutable {
            if (std::exchange(before, now.Text) != now.Text && Enabled())
                FollowAlternateTime();
        });
}

void CycleTimer::SetEnabled(bool enabled) {
    if (enabled == Enabled())
        return;
    if (enabled)
        timer_ = p_.Ticks.Start(intervalMs_, p_.Handlers.Wrap("cTmr_Timer", [this] { cTmr_Timer(); }));
    else
        p_.Ticks.Stop(std::exchange(timer_, 0));
}

void CycleTimer::cTmr_Timer() {
    // Continuous pulses would leave no gap for a start that waits until all tones have ended.
    if (p_.State.StartIsHeldUp)
        return;
    Step();
    FollowAlternateTime();
}

void CycleTimer::Step() {
    try {
        p_.Step();
    } catch (const std::exception&) {
        p_.SwitchOff();
        throw;
    }
}

void CycleTimer::FollowAlternateTime() {
    const std::string& text = p_.Song.AlternateTime.Text();
    const double interval = RoundHalfEven(Val(text));
    if (!IsNumeric(text) || std::abs(interval) > std::numeric_limits<std::int32_t>::max())
        return;
    intervalMs_ = static_cast<std::int32_t>(interval);
    p_.Ticks.SetInterval(timer_, intervalMs_);
}

}  // namespace quavix
