// SPDX-License-Identifier: MIT
#include "shell/waiting.h"

#include <span>

namespace quavix {

std::int32_t Waiting::MsgWaitObj(std::int32_t interval, WaitHandle handle, std::int32_t handleCount) {
    constexpr std::int32_t Forever = -1;
    const std::span<const WaitHandle> handles(&handle, handleCount > 0 ? 1 : 0);
    // Tick counts wrap, and so do sums and differences of unsigned numbers.
    const std::uint32_t end = clock_.TickCount() + static_cast<std::uint32_t>(interval);
    std::int32_t remaining = Forever;
    for (;;) {
        if (interval != Forever) {
            remaining = static_cast<std::int32_t>(end - clock_.TickCount());
            // If more time is left than requested, the end has passed and the subtraction has wrapped.
            const bool sameSign = (remaining ^ interval) > 0;
            if (sameSign ? remaining > interval : remaining < 0)
                return EventPump::WaitTimedOut;
        }
        const std::uint32_t result = pump_.WaitForInput(handles, static_cast<std::uint32_t>(remaining));
        pump_.DoEvents();
        if (result != handles.size())
            return static_cast<std::int32_t>(result);
    }
}

Currency ReadTickFreq(Clock& clock, DebugLog& log) {
    const Currency tickFreq = Currency::FromUnits(clock.PerformanceFrequency());
    log.Text("QueryPerformanceFrequency returned {} (TickFreq set to this)", tickFreq.ToText());
    return tickFreq;
}

}  // namespace quavix
