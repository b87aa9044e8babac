// SPDX-License-Identifier: MIT
#include "platform/common/speaker/silent_speaker.h"

#include <utility>

namespace quavix {

SilentSpeaker::SilentSpeaker(ToneClock clock) : clock_(std::move(clock)) {}

void SilentSpeaker::Beep(std::int32_t, std::int32_t durationMs) {
    if (durationMs > 0)
        clock_.WaitUntil(clock_.DeadlineAfter(durationMs));
}

SpeakerStatus SilentSpeaker::Status() const {
    SpeakerStatus status;
    status.InUse = "silent (tones keep their time but make no sound)";
    status.Silent = true;
    return status;
}

}  // namespace quavix
