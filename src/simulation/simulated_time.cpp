// SPDX-License-Identifier: MIT
#include "simulation/simulated_time.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quavix {

namespace {

std::int64_t Counts(double ms) {
    return std::llround(ms * static_cast<double>(SimulatedTime::CountsPerMs));
}

}  // namespace

std::int64_t SimulatedTime::PerformanceCounter() {
    constexpr std::int64_t FreeReadings = 100'000;
    constexpr std::int64_t CountsPerReading = CountsPerMs / 10;
    if (++readingsWithoutWait_ > FreeReadings)
        now_ += CountsPerReading;
    return start_.Counter + now_;
}

std::uint32_t SimulatedTime::TickCount() {
    return start_.TickCount + static_cast<std::uint32_t>(now_ / CountsPerMs);
}

TimeOfDay SimulatedTime::LocalTime() {
    const std::int64_t seconds =
        (start_.Time.Hour * 60 + start_.Time.Minute) * 60 + start_.Time.Second + now_ / CountsPerSecond;
    return {static_cast<int>(seconds / 3600 % 24), static_cast<int>(seconds / 60 % 60),
            static_cast<int>(seconds % 60)};
}

void SimulatedTime::Advance(std::int64_t to) {
    if (to <= now_)
        return;
    now_ = to;
    readingsWithoutWait_ = 0;
}

std::uint32_t SimulatedTime::WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) {
    const std::int64_t deadline = now_ + timeoutMs * CountsPerMs;
    for (;;) {
        for (std::size_t i = 0; i < handles.size(); ++i) {
            if (signalled_.contains(handles[i]))
                return static_cast<std::uint32_t>(i);
        }
        if (IsDue())
            return static_cast<std::uint32_t>(handles.size());
        const bool somethingComes = !events_.empty();
        if (timeoutMs == Forever && !somethingComes)
            throw std::logic_error("simulated time: a wait for ever with nothing to come");
        if (timeoutMs != Forever && (!somethingComes || events_.begin()->first > deadline)) {
            Advance(deadline);
            return WaitTimedOut;
        }
        Advance(events_.begin()->first);
    }
}

void SimulatedTime::DoEvents() {
    // Events that become due while handlers run belong to the next call.
    const std::int64_t until = now_;
    while (!events_.empty() && events_.begin()->first <= until) {
        const Event event = std::move(events_.extract(events_.begin()).mapped());
        event.Run();
    }
}

void SimulatedTime::At(double ms, std::function<void()> event) {
    events_.emplace(Counts(ms), Event{std::move(event)});
}

void SimulatedTime::SignalAt(double ms, WaitHandle handle) {
    At(ms, [this, handle] { signalled_.insert(handle); });
}

SimulatedTime::Id SimulatedTime::Start(std::int32_t intervalMs, std::function<void()> tick) {
    const Id timer = ++lastTimer_;
    timers_[timer] = {std::max(intervalMs, 1) * CountsPerMs, std::move(tick), now_};
    ScheduleTick(timer);
    return timer;
}

void SimulatedTime::SetInterval(Id timer, std::int32_t intervalMs) {
    const auto found = timers_.find(timer);
    const std::int64_t interval = std::max(intervalMs, 1) * CountsPerMs;
    if (found == timers_.end() || found->second.Interval == interval)
        return;
    found->second.Interval = interval;
    if (found->second.IsTicking)
        return;
    TakeFromSchedule(timer);
    ScheduleTick(timer);
}

void SimulatedTime::ScheduleTick(Id timer) {
    const Timer& state = timers_.at(timer);
    events_.emplace(state.LastDue + state.Interval, Event{[this, timer] { RunTick(timer); }, timer});
}

void SimulatedTime::RunTick(Id timer) {
    Timer& state = timers_.at(timer);
    state.LastDue += (now_ - state.LastDue) / state.Interval * state.Interval;
    state.IsTicking = true;
    const auto tick = state.Tick;  // the tick may stop its own timer
    tick();
    const auto found = timers_.find(timer);
    if (found == timers_.end())
        return;
    found->second.IsTicking = false;
    ScheduleTick(timer);
}

void SimulatedTime::TakeFromSchedule(Id timer) {
    std::erase_if(events_, [timer](const auto& event) { return event.second.Timer == timer; });
}

void SimulatedTime::Stop(Id timer) {
    if (timers_.erase(timer) > 0)
        TakeFromSchedule(timer);
}

void SimulatedTime::RunUntil(double ms) {
    const std::int64_t until = Counts(ms);
    while (!events_.empty() && events_.begin()->first <= until) {
        Advance(events_.begin()->first);
        DoEvents();
    }
    Advance(until);
}

}  // namespace quavix
