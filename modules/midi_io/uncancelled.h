// SPDX-License-Identifier: MIT
#pragma once

#include <pthread.h>

namespace quavix::midi_io {

/// Calls `work` in the calling thread, which JACK may cancel, and delays a cancellation until `work` has
/// returned. JACK cancels a client's threads when the client is closed, and when the process enters a new
/// server after the client's server has died. It cancels them at any instruction, which ends a process
/// written in C++. `work` must not throw.
template <typename Work>
void Uncancelled(Work work) {
    int before = PTHREAD_CANCEL_ENABLE;
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before);
    work();
    pthread_setcancelstate(before, nullptr);
}

}  // namespace quavix::midi_io
