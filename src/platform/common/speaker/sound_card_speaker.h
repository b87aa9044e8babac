// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"
#include "platform/common/speaker/sound_card.h"

namespace quavix {

/// Plays the tones as a band-limited square wave on the sound card. When the card is lost, tones are silent
/// and keep their time, and a later tone tries to get it back, at most every two seconds.
class SoundCardSpeaker : public PlatformSpeaker {
  public:
    /// Begins to open the card, which goes on while the program starts.
    explicit SoundCardSpeaker(ToneClock clock);

    /// Lets the last samples of the last tone sound.
    ~SoundCardSpeaker() override;

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;

    /// Fails where there is no card. One that takes longer to open is used as soon as it is open.
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
