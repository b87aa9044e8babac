// SPDX-License-Identifier: MIT
#include "platform/qt/qt_event_pump.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <list>
#include <thread>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include "platform/common/wait_handles.h"

namespace quavix {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

// Qt's timers count whole milliseconds and may be 1 ms late, so the rest of a wait is slept.
constexpr auto TimerSlack = 2ms;

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

}  // namespace quavix
