// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "ports/event_pump.h"

namespace quavix {

/// Watches signalled handles, beside window events.
///
/// Thread: the user-interface thread. A handler runs as a window event whenever its handle is signalled, so
/// it has to reset the signal.
class HandleWatch {
  public:
    /// Identifies a running watch; 0 is none.
    using Id = std::int64_t;

    virtual ~HandleWatch() = default;

    /// Calls `signalled` whenever `handle` is signalled, until Unwatch(). The caller owns the handle and must
    /// keep it open meanwhile.
    virtual Id Watch(WaitHandle handle, std::function<void()> signalled) = 0;

    /// Ends a watch; its handler does not run afterwards. An unknown id is ignored.
    virtual void Unwatch(Id watch) = 0;
};

}  // namespace quavix
