// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

namespace quavix::test {

/// Hides the machine's sound devices from this process: ALSA opens only devices that its configuration names.
inline void HideSoundDevices() {
    ::setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
}

}  // namespace quavix::test
