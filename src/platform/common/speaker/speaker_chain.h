// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "platform/common/speaker/platform_speaker.h"

namespace quavix {

/// Uses the first of several speakers that works, and the next one when it fails; remembers the reasons. The
/// choice may be made only at the first tone or the first status query.
class SpeakerChain : public Speaker {
  public:
    using Maker = std::function<SpeakerAttempt()>;

    /// Tries `makers` in order; the last one must not fail. `remark` precedes every reason.
    SpeakerChain(std::deque<Maker> makers, std::string remark);

    /// Sounds a tone. A failed speaker is replaced after the tone, not during it.
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

    // A pointer, because the const Status() may make the choice.
    std::unique_ptr<Choice> choice_;
};

}  // namespace quavix
