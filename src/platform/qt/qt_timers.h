// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include <QTimer>

#include "ports/timers.h"

namespace quavix {

/// Timers of Qt's event loop, to the millisecond.
class QtTimers : public Timers {
  public:
    Id Start(std::int32_t intervalMs, std::function<void()> tick) override;
    void Stop(Id timer) override;

  private:
    struct DeleteLater {
        void operator()(QTimer* timer) const;
    };

    std::map<Id, std::unique_ptr<QTimer, DeleteLater>> timers_;
    Id lastTimer_ = 0;
};

}  // namespace quavix
