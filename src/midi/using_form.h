// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// The table of held notes by MIDI note number. A number outside 0..127 raises SubscriptOutOfRange.
class HeldNotes {
  public:
    static constexpr std::int32_t Count = 128;

    enum State : std::uint8_t {
        NotHeld = 0,
        Held = 1,
        /// Held, but already played once and left out from now on.
        HasPlayed = 2
    };

    State At(std::int32_t note) const;

    /// Marks a note as held. A note that is already held, played or not, stays unchanged.
    void Press(std::int32_t note);
    void Release(std::int32_t note);
    void SetHasPlayed(std::int32_t note);
    void ReleaseAll() { states_.fill(NotHeld); }

  private:
    std::array<State, Count> states_{};
};

/// A label in the grid of held notes.
struct OnNoteLabel {
    /// Colours, as red + green × 256 + blue × 65536.
    static constexpr std::int32_t Listed = 128;
    static constexpr std::int32_t Pulsed = 255;

    std::string Caption;
    std::int32_t Colour = Listed;
    bool Visible = false;

    friend bool operator==(const OnNoteLabel&, const OnNoteLabel&) = default;
};

/// The base of the forms that play held notes through the cycler: the table of held notes, the rule by
/// which messages change it, and the controls. It watches its own check boxes.
class UsingForm {
  public:
    static constexpr std::int32_t Channels = 16;
    static constexpr std::int32_t Labels = 32;
    using OnNoteLabels = std::array<OnNoteLabel, Labels>;

    explicit UsingForm(EventBoundary& handlers);
    UsingForm(const UsingForm&) = delete;
    UsingForm& operator=(const UsingForm&) = delete;

    /// Returns true if the note is held and in the cycle.
    bool GetMIDINoteIsOn(std::int32_t checkIndex) const { return notes_.At(checkIndex) == HeldNotes::Held; }
    /// Removes the note from the cycle until it is released and struck again.
    void SetMIDINoteHasPlayed(std::int32_t setIndex) { notes_.SetHasPlayed(setIndex); }
    /// Returns true if any note is held and in the cycle.
    bool HoldsNotes() const;
    void ReleaseAllNotes() { notes_.ReleaseAll(); }

    /// Applies a message to the table: a note-on holds its note; a note-off, or a note-on of velocity 0,
    /// releases it. Other messages, and those on unticked channels, are ignored. A `data1` outside 0..127
    /// raises SubscriptOutOfRange.
    void TakeMessage(std::int32_t status, std::int32_t data1, std::int32_t data2);

    /// Same, but also ignores messages with a `data1` outside 0..127.
    void SimulateMIDIMessage(std::int32_t message, std::int32_t data1, std::int32_t data2);

    /// True if a note leaves the cycle when it has been played. Set by OnlyOnceCheck.
    bool OnlyPlayNoteOnce = false;

    // The controls.
    /// Channels to listen to. Un-ticking one releases all held notes, on any channel.
    std::array<Watched<bool>, Channels> ListenChannelCheck;
    Watched<bool> SaveCPUCheck;
    Watched<bool> AutoTimeCheck;
    Watched<bool> OnlyOnceCheck;
    /// All labels, changed at once.
    Watched<OnNoteLabels> lblOnNotes;
    Watched<std::string> lblMoreOnNotes{"(More)"};
    Watched<bool> lblMoreOnNotesVisible;
    Watched<std::string> lblHeldCount{" (0)"};

  protected:
    ~UsingForm() = default;

  private:
    void ListenChannelCheck_Click(std::int32_t index);
    void OnlyOnceCheck_Click();

    HeldNotes notes_;
};

}  // namespace quavix
