// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "ports/event_pump.h"

namespace quavix {

/// Watches what the system can signal, beside the windows' own events.
///
/// Thread: the user-interface thread. Handlers run as window events, as often as they find their handle
/// signalled: they have to take the signal away.
class HandleWatch {
  public:
    /// A running watch; 0 is none.
    using Id = std::int64_t;

    virtual ~HandleWatch() = default;

    /// Calls `signalled` whenever `handle` is, until Unwatch(). The handle stays the caller's and open
    /// meanwhile.
    virtual Id Watch(WaitHandle handle, std::function<void()> signalled) = 0;

    /// Ends a watch; its handler doesn't run afterwards. An unknown id is ignored.
    virtual void Unwatch(Id watch) = 0;
};

}  // namespace quavix
