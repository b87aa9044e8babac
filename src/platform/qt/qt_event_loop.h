// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include <QSocketNotifier>

#include "platform/common/wait_handles.h"
#include "ports/event_pump.h"
#include "ports/timers.h"

namespace quavix {

/// The event pump on Qt's event loop. Needs the application object; handles are file descriptors.
class QtEventPump : public EventPump {
  public:
    std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) override;
    void DoEvents() override;
};

/// The deleter of notifiers: deletes later, because the handler of a notifier may end it.
struct DeleteNotifierLater {
    void operator()(QSocketNotifier* notifier) const;
};
using OwnedNotifier = std::unique_ptr<QSocketNotifier, DeleteNotifierLater>;

/// Watches file descriptors for input in Qt's event loop.
class QtHandleWatch : public HandleWatch {
  public:
    Id Watch(WaitHandle handle, std::function<void()> signalled) override;
    void Unwatch(Id watch) override;

  private:
    std::map<Id, OwnedNotifier> notifiers_;
    Id lastWatch_ = 0;
};

/// Timers of the system, watched by Qt's event loop. Qt's own timers are up to 1 ms late, which is the whole
/// interval of a fast one.
class QtTimers : public Timers {
  public:
    /// Raises std::system_error if the system has none left.
    Id Start(std::int32_t intervalMs, std::function<void()> tick) override;
    void SetInterval(Id timer, std::int32_t intervalMs) override;
    void Stop(Id timer) override;

  private:
    struct Timer {
        /// Declared before the notifier, which must be destroyed first.
        std::unique_ptr<TickTimer> Ticks;
        std::int64_t IntervalNs = 0;
        /// Due time of the last tick, or the start of the timer.
        std::int64_t LastDueNs = 0;
        bool IsTicking = false;
        OwnedNotifier Notifier;

        void Arm();
    };

    void RunTick(Id timer, const std::function<void()>& tick);

    std::map<Id, Timer> timers_;
    Id lastTimer_ = 0;
};

}  // namespace quavix
