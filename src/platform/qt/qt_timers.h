// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include <QSocketNotifier>

#include "platform/common/wait_handles.h"
#include "ports/timers.h"

namespace quavix {

/// Timers of the system, which Qt's event loop looks at. Its own timers are late by up to a millisecond,
/// which is the whole interval of a quick one.
class QtTimers : public Timers {
  public:
    /// Raises std::system_error if the system has none left.
    Id Start(std::int32_t intervalMs, std::function<void()> tick) override;
    void SetInterval(Id timer, std::int32_t intervalMs) override;
    void Stop(Id timer) override;

  private:
    struct DeleteLater {
        void operator()(QSocketNotifier* notifier) const;
    };

    struct Timer {
        /// Before the notifier, which must end first.
        std::unique_ptr<TickTimer> Ticks;
        std::int64_t IntervalNs = 0;
        /// When the last tick was due, or the timer was started.
        std::int64_t LastDueNs = 0;
        bool IsTicking = false;
        std::unique_ptr<QSocketNotifier, DeleteLater> Notifier;

        void Arm();
        /// False where there is no tick after all.
        bool TakeTick();
    };

    void RunTick(Id timer, const std::function<void()>& tick);

    std::map<Id, Timer> timers_;
    Id lastTimer_ = 0;
};

}  // namespace quavix
