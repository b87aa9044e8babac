// SPDX-License-Identifier: MIT
#include <thread>

#include <QCoreApplication>
#include <gtest/gtest.h>

#include "platform/common/wait_handles.h"
#include "platform/qt/qt_event_loop.h"

namespace quavix {
namespace {

TEST(QtHandleWatch, ASignalFromAnotherThreadRunsTheHandlerInThisOne) {
    WakeSignal signal;
    QtHandleWatch watches;
    int times = 0;
    HandleWatch::Id id = 0;
    const std::thread::id here = std::this_thread::get_id();
    id = watches.Watch(signal.Handle(), [&] {
        EXPECT_EQ(std::this_thread::get_id(), here);
        signal.Clear();
        if (++times == 2)
            watches.Unwatch(id);
    });
    for (int expected = 1; expected <= 2; ++expected) {
        std::thread(&WakeSignal::Raise, &signal).join();
        while (times < expected)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    signal.Raise();
    watches.Unwatch(id + 100);
    QCoreApplication::processEvents();
    EXPECT_EQ(times, 2) << "its own handler has ended the watch";
}

}  // namespace
}  // namespace quavix
