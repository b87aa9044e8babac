// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"
#include "ports/event_pump.h"

namespace quavix {

/// A signal that any thread may raise, and that a wait for handles sees until it is cleared.
class WakeSignal {
  public:
    WakeSignal();

    /// Never blocks, and takes no lock: also from threads of real time.
    void Raise();
    void Clear();

    WaitHandle Handle() const { return counter_.Get(); }

  private:
    FileDescriptor counter_;
};

}  // namespace quavix
