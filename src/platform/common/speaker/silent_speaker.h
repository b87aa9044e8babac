// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"

namespace quavix {

/// A silent speaker that keeps the time of every tone, so that a song still runs as written.
class SilentSpeaker : public PlatformSpeaker {
  public:
    explicit SilentSpeaker(ToneClock clock) : clock_(std::move(clock)) {}

    void Beep(std::int32_t, std::int32_t durationMs) override {
        if (durationMs > 0)
            clock_.WaitUntil(clock_.DeadlineAfter(durationMs));
    }

    SpeakerStatus Status() const override {
        SpeakerStatus status;
        status.InUse = "silent (tones keep their time but make no sound)";
        status.Silent = true;
        return status;
    }

  private:
    ToneClock clock_;
};

}  // namespace quavix
