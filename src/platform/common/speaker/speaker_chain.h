// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "platform/common/speaker/platform_speaker.h"

namespace quavix {

/// Uses the first of several speakers that can be had, and the next one when it fails; remembers why. Which
/// one it is may be known only at the first tone or the first look at the status.
class SpeakerChain : public Speaker {
  public:
    using Maker = std::function<SpeakerAttempt()>;

    /// Tries `makers` in their order; the last one must not refuse or fail. `remark` goes before every
    /// reason.
    SpeakerChain(std::deque<Maker> makers, std::string remark);

    /// A speaker that failed is replaced before the next tone begins, not within one.
    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;

  private:
    struct Choice {
        std::deque<Maker> Makers;
        std::string Reason;
        std::string Remedy{};
        std::unique_ptr<PlatformSpeaker> InUse{};
        bool Settled = false;

        void TakeNext();
        void GiveUp();
        void AddReason(const std::string& reason, const std::string& remedy);
    };

    PlatformSpeaker& InUse() const;

    // Behind a pointer, as a look at the status may be what settles it.
    std::unique_ptr<Choice> choice_;
};

}  // namespace quavix
