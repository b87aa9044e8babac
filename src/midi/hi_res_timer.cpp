// SPDX-License-Identifier: MIT
#include "midi/hi_res_timer.h"

#include <utility>

#include "shell/runtime_error.h"

namespace quavix {

HiResTimer::HiResTimer(Timers& timers, std::function<void(const std::string& sKey)> tick)
    : timers_(timers), tick_(std::move(tick)) {}

HiResTimer::~HiResTimer() {
    for (const auto& [key, entry] : entries_)
        timers_.Stop(entry.Timer);
}

HiResTimer::Entry& HiResTimer::At(const std::string& key) {
    return const_cast<Entry&>(std::as_const(*this).At(key));
}

const HiResTimer::Entry& HiResTimer::At(const std::string& key) const {
    const auto found = entries_.find(key);
    if (found == entries_.end())
        throw RuntimeError(RuntimeError::InvalidProcedureCall);
    return found->second;
}

void HiResTimer::Add(const std::string& key, std::int32_t intervalMs, bool enabled) {
    if (!entries_.try_emplace(key, Entry{.IntervalMs = intervalMs}).second)
        throw RuntimeError(RuntimeError::InvalidProcedureCall);
    SetEnabled(key, enabled);
}

void HiResTimer::SetInterval(const std::string& key, std::int32_t intervalMs) {
    Entry& entry = At(key);
    entry.IntervalMs = intervalMs;
    timers_.SetInterval(entry.Timer, intervalMs);
}

std::int32_t HiResTimer::Interval(const std::string& key) const {
    return At(key).IntervalMs;
}

void HiResTimer::SetEnabled(const std::string& key, bool enabled) {
    Entry& entry = At(key);
    if (enabled == (entry.Timer != 0))
        return;
    if (enabled)
        entry.Timer = timers_.Start(entry.IntervalMs, [this, key] { tick_(key); });
    else
        timers_.Stop(std::exchange(entry.Timer, 0));
}

bool HiResTimer::Enabled(const std::string& key) const {
    return At(key).Timer != 0;
}

}  // namespace quavix
