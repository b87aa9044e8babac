// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include <QSocketNotifier>

#include "ports/handle_watch.h"

namespace quavix {

/// Watches file descriptors for input in Qt's event loop.
class QtHandleWatch : public HandleWatch {
  public:
    Id Watch(WaitHandle handle, std::function<void()> signalled) override;
    void Unwatch(Id watch) override;

  private:
    struct DeleteLater {
        void operator()(QSocketNotifier* notifier) const;
    };

    std::map<Id, std::unique_ptr<QSocketNotifier, DeleteLater>> notifiers_;
    Id lastWatch_ = 0;
};

}  // namespace quavix
