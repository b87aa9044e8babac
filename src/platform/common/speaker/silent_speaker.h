// SPDX-License-Identifier: MIT
#pragma once

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"

namespace quavix {

/// Makes no sound and keeps the time of every tone, so that a song still runs as written.
class SilentSpeaker : public PlatformSpeaker {
  public:
    explicit SilentSpeaker(ToneClock clock);

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;

  private:
    ToneClock clock_;
};

}  // namespace quavix
