// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speaker.h"

namespace quavix {

/// Sounds the tone by which a user hears whether the speaker works.
inline void TestSpeaker(Speaker& speaker) {
    constexpr std::int32_t ConcertPitchHz = 440;
    constexpr std::int32_t DurationMs = 300;
    speaker.Beep(ConcertPitchHz, DurationMs);
}

}  // namespace quavix
