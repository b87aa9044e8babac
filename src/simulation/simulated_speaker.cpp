// SPDX-License-Identifier: MIT
#include "simulation/simulated_speaker.h"

#include <fmt/format.h>

namespace quavix {

void SimulatedSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    timeline_.Record(time_.Now(), fmt::format("speaker {} Hz {} ms", frequency, durationMs));
    if (durationMs > 0)
        time_.Block(durationMs);
}

}  // namespace quavix
