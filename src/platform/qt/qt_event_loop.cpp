// SPDX-License-Identifier: MIT
#include "platform/qt/qt_event_loop.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <list>
#include <thread>
#include <utility>

#include <QCoreApplication>
#include <QTimer>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

// Qt's timers count whole milliseconds and may be 1 ms late, so the rest of a wait is slept.
constexpr auto TimerSlack = 2ms;

std::int64_t NsOf(std::int32_t ms) {
    return std::max(ms, 1) * NsPerMs;
}

}  // namespace

std::uint32_t QtEventPump::WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) {
    const auto deadline = SteadyClock::now() + std::chrono::milliseconds(timeoutMs);
    if (const auto handle = Signalled(handles))
        return *handle;

    bool nearlyOver = timeoutMs <= TimerSlack.count();
    if (!nearlyOver) {
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, [&nearlyOver] { nearlyOver = true; });
        if (timeoutMs != Forever)
            timer.start(static_cast<int>(std::min<std::uint32_t>(timeoutMs, INT32_MAX) - TimerSlack.count()));
        std::list<QSocketNotifier> notifiers;  // only to wake the loop
        for (const WaitHandle handle : handles)
            notifiers.emplace_back(static_cast<qintptr>(handle), QSocketNotifier::Read);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        if (const auto handle = Signalled(handles))
            return *handle;
    }
    if (timeoutMs != Forever && (nearlyOver || SteadyClock::now() >= deadline)) {
        std::this_thread::sleep_until(deadline);
        return WaitTimedOut;
    }
    return static_cast<std::uint32_t>(handles.size());
}

void QtEventPump::DoEvents() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void DeleteNotifierLater::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

HandleWatch::Id QtHandleWatch::Watch(WaitHandle handle, std::function<void()> signalled) {
    OwnedNotifier notifier(new QSocketNotifier(handle, QSocketNotifier::Read));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(signalled));
    notifiers_[++lastWatch_] = std::move(notifier);
    return lastWatch_;
}

void QtHandleWatch::Unwatch(Id watch) {
    notifiers_.erase(watch);
}

void QtTimers::Timer::Arm() {
    Ticks->Start(LastDueNs + IntervalNs, IntervalNs);
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
    Timer& due = found->second;
    if (due.IsTicking) {
        due.Notifier->setEnabled(false);  // the kernel keeps the tick until the current one has ended
        return;
    }
    const std::int64_t ticks = due.Ticks->Take();
    if (ticks == 0)
        return;
    due.LastDueNs += ticks * due.IntervalNs;
    due.IsTicking = true;
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
