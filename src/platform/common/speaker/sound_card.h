// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/common/speaker/tone_player.h"

namespace quavix {

/// Opens the sound card, and opens it again when it is lost, without keeping anybody waiting: a thread of its
/// own talks to the sound system.
///
/// Thread: the user-interface thread.
class SoundCard {
  public:
    enum class State { NotOpened, Opening, Open, Unavailable };

    SoundCard();

    /// Closes the card; a sound system that does not answer is left behind after two seconds.
    ~SoundCard();

    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    /// Begins to open the card, or to close and open it again; does nothing while that is going on.
    void BeginOpening();

    /// Waits until opening is over, at most this long.
    void AwaitOpening(std::int32_t mostMs) const;

    State Now() const;

    /// Returns the name of the open device, or the reason why none is open.
    std::string Description() const;

    /// Null unless the card is open.
    std::shared_ptr<TonePlayer> Player() const;

  private:
    struct Shared;
    static void Work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace quavix
