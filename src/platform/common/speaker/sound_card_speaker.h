// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"
#include "platform/common/speaker/sound_card.h"

namespace quavix {

/// Plays tones as a band-limited square wave on the sound card. While the card is lost, tones are silent but
/// keep their time, and later tones try to reopen it, at most every two seconds.
class SoundCardSpeaker : public PlatformSpeaker {
  public:
    /// Starts opening the card, which continues while the program starts.
    explicit SoundCardSpeaker(ToneClock clock);

    /// Lets the last samples of the last tone sound.
    ~SoundCardSpeaker() override;

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;

    /// Fails if there is no card. A card that takes longer to open is used once it is open.
    void Settle() override;
    bool Failed() const override { return refused_; }

  private:
    bool Lost(const TonePlayer& player) const;
    std::shared_ptr<TonePlayer> UsablePlayer(std::int64_t nowNs);

    ToneClock clock_;
    SoundCard card_;
    std::int64_t triedNs_;
    bool refused_ = false;
};

}  // namespace quavix
