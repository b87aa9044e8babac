// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// The end of the process.
///
/// Thread: the user-interface thread.
class ProcessEnd {
  public:
    virtual ~ProcessEnd() = default;

    /// Ends the process at once with status 0, whatever is on the stack: no window, object or handler sees
    /// anything of it. Returns only where the end is simulated.
    virtual void EndProcess() = 0;
};

}  // namespace quavix
