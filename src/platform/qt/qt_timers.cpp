// SPDX-License-Identifier: MIT
#include "platform/qt/qt_timers.h"

#include <algorithm>
#include <utility>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

std::int64_t NsOf(std::int32_t ms) {
    return std::max(ms, 1) * NsPerMs;
}

}  // namespace

/// Deleted later, because a timer may be stopped by its own tick.
void QtTimers::DeleteLater::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

void QtTimers::Timer::Arm() {
    Ticks->Start(LastDueNs + IntervalNs, IntervalNs);
}

bool QtTimers::Timer::TakeTick() {
    const std::int64_t ticks = Ticks->Take();
    LastDueNs += ticks * IntervalNs;
    return ticks > 0;
}

Timers::Id QtTimers::Start(std::int32_t intervalMs, std::function<void()> tick) {
    Timer timer{.Ticks = std::make_unique<TickTimer>(),
                .IntervalNs = NsOf(intervalMs),
                .LastDueNs = MonotonicNs(),
                .Notifier = nullptr};
    timer.Arm();
    timer.Notifier.reset(new QSocketNotifier(timer.Ticks->Handle(), QSocketNotifier::Read));
    const Id id = ++lastTimer_;
    QObject::connect(timer.Notifier.get(), &QSocketNotifier::activated, timer.Notifier.get(),
                     [this, id, tick = std::move(tick)] { RunTick(id, tick); });
    timers_.emplace(id, std::move(timer));
    return id;
}

void QtTimers::RunTick(Id timer, const std::function<void()>& tick) {
    auto found = timers_.find(timer);
    if (found == timers_.end())
        return;
    if (found->second.IsTicking) {
        found->second.Notifier->setEnabled(
            false);  // the kernel keeps the tick until the current one has ended
        return;
    }
    if (!found->second.TakeTick())
        return;
    found->second.IsTicking = true;
    tick();
    found = timers_.find(timer);
    if (found == timers_.end())
        return;
    found->second.IsTicking = false;
    found->second.Notifier->setEnabled(true);
}

void QtTimers::SetInterval(Id timer, std::int32_t intervalMs) {
    const auto found = timers_.find(timer);
    if (found == timers_.end() || found->second.IntervalNs == NsOf(intervalMs))
        return;
    found->second.IntervalNs = NsOf(intervalMs);
    found->second.Arm();
}

void QtTimers::Stop(Id timer) {
    timers_.erase(timer);
}

}  // namespace quavix
