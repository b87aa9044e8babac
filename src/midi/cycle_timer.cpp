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

CycleTimer::CycleTimer(CycleTimerParts parts, std::string key)
    : p_(std::move(parts)), key_(std::move(key)), cTmr_(p_.Ticks, [this](const std::string& sKey) {
          p_.Handlers.Run("cTmr_Timer", [&] { cTmr_Timer(sKey); });
      }) {
    cTmr_.Add(key_, FirstIntervalMs, false);
    // A mistyped interval must not last until its end, which may be days away.
    p_.Fields.AlternateTime.State().Watch(
        [this, before = p_.Fields.AlternateTime.Text()](const SettingState& now) mutable {
            if (std::exchange(before, now.Text) != now.Text && Enabled())
                FollowAlternateTime();
        });
}

void CycleTimer::cTmr_Timer(const std::string& sKey) {
    // Pulse upon pulse would not leave a gap for who waits for the end of all tones.
    if (sKey != key_ || p_.Fields.StartIsHeldUp)
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
    const std::string& text = p_.Fields.AlternateTime.Text();
    const double interval = RoundHalfEven(Val(text));
    if (IsNumeric(text) && std::abs(interval) <= std::numeric_limits<std::int32_t>::max())
        cTmr_.SetInterval(key_, static_cast<std::int32_t>(interval));
}

}  // namespace quavix
