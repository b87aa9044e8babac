// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <cstdint>
#include <linux/input.h>
#include <unistd.h>

namespace quavix {

/// Sounds `hz` on the event device until another value is written; 0 is silence. False: the device did not
/// take it, errno says why. Calls nothing but write().
inline bool WriteTone(int device, std::int32_t hz) {
    input_event event{};
    event.type = EV_SND;
    event.code = SND_TONE;
    event.value = hz;
    ssize_t written;
    do {
        written = write(device, &event, sizeof event);
    } while (written < 0 && errno == EINTR);
    return written == static_cast<ssize_t>(sizeof event);
}

}  // namespace quavix
