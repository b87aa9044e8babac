// SPDX-License-Identifier: MIT
#include "platform/qt/qt_timers.h"

#include <algorithm>

namespace quavix {

/// A timer may be stopped by its own tick.
void QtTimers::DeleteLater::operator()(QTimer* timer) const {
    timer->stop();
    timer->deleteLater();
}

Timers::Id QtTimers::Start(std::int32_t intervalMs, std::function<void()> tick) {
    std::unique_ptr<QTimer, DeleteLater> timer(new QTimer);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(tick));
    timer->start(std::max(intervalMs, 1));
    timers_[++lastTimer_] = std::move(timer);
    return lastTimer_;
}

void QtTimers::Stop(Id timer) {
    timers_.erase(timer);
}

}  // namespace quavix
