// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace quavix {

/// Which notes are held down, by MIDI note number. A number outside 0..127 raises SubscriptOutOfRange.
class HeldNotes {
  public:
    static constexpr std::int32_t Count = 128;

    enum State : std::uint8_t {
        NotHeld = 0,
        Held = 1,
        /// Held, but already played once and to be left out from then on.
        HasPlayed = 2
    };

    State At(std::int32_t note) const;

    /// A note that is held already, played or not, stays as it is.
    void Press(std::int32_t note);
    void Release(std::int32_t note);
    void SetHasPlayed(std::int32_t note);
    void ReleaseAll() { states_.fill(NotHeld); }

  private:
    std::array<State, Count> states_{};
};

}  // namespace quavix
