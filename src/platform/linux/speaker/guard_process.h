// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// What the guard is told: a tone may sound until this moment of the monotonic clock; 0: it was switched off.
struct GuardMessage {
    std::int64_t DeadlineNs = 0;
};

/// How long past a tone's end the guard lets the program switch it off itself.
inline constexpr std::int64_t GuardGraceNs = 5'000'000;

/// The speaker guard's work in its own process: switches the device off whenever a tone is past its end, and
/// once more when the program is gone. Makes system calls and nothing else.
void GuardSpeaker(int device, int channel);

}  // namespace quavix
