// SPDX-License-Identifier: MIT
#include "platform/qt/qt_handle_watch.h"

#include <utility>

namespace quavix {

/// Deleted later, because a watch may be ended by its own handler.
void QtHandleWatch::DeleteLater::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

HandleWatch::Id QtHandleWatch::Watch(WaitHandle handle, std::function<void()> signalled) {
    std::unique_ptr<QSocketNotifier, DeleteLater> notifier(
        new QSocketNotifier(handle, QSocketNotifier::Read));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(signalled));
    notifiers_[++lastWatch_] = std::move(notifier);
    return lastWatch_;
}

void QtHandleWatch::Unwatch(Id watch) {
    notifiers_.erase(watch);
}

}  // namespace quavix
