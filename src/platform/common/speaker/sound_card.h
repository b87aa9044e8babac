// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/common/speaker/tone_player.h"

namespace quavix {

/// Opens the sound card, and reopens it when it is lost, without blocking the caller: a separate thread talks
/// to the sound system.
///
/// Thread: the user-interface thread.
class SoundCard {
  public:
    enum class State { NotOpened, Opening, Open, Unavailable };

    struct Facts {
        State Is = State::NotOpened;
        /// Name of the open device, or the reason why none is open.
        std::string Description{};
        /// Null unless the card is open.
        std::shared_ptr<TonePlayer> Player{};
    };

    SoundCard();

    /// Closes the card; gives up after two seconds if the sound system does not answer.
    ~SoundCard();

    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    /// Starts opening the card, or closing and reopening it; does nothing while that is in progress.
    void BeginOpening();

    /// Waits until opening has ended, at most `mostMs` ms.
    void AwaitOpening(std::int32_t mostMs) const;

    Facts Now() const;

  private:
    struct Shared;
    static void Work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace quavix
