// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

namespace quavix::test {

/// Keeps this process from the machine's own sound devices: ALSA opens none that its configuration does not
/// name.
inline void HideSoundDevices() {
    ::setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
}

}  // namespace quavix::test
