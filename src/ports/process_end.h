// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// The end of the process.
///
/// Thread: the user-interface thread.
class ProcessEnd {
  public:
    virtual ~ProcessEnd() = default;

    /// Ends the process at once with status 0, without destructors or further handlers. Returns only in a
    /// simulation.
    virtual void EndProcess() = 0;
};

}  // namespace quavix
