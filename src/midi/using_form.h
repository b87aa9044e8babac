// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

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

/// The base of the forms that play held notes through the cycler: the table of held notes by MIDI note
/// number, the rule by which messages change it, and the controls. A note outside 0..127 raises
/// SubscriptOutOfRange.
class UsingForm {
  public:
    static constexpr std::int32_t Notes = 128;
    static constexpr std::int32_t Channels = 16;
    static constexpr std::int32_t Labels = 32;
    using OnNoteLabels = std::array<OnNoteLabel, Labels>;

    explicit UsingForm(EventBoundary& handlers);

    /// Returns true if the note is held and in the cycle.
    bool GetMIDINoteIsOn(std::int32_t checkIndex) const;
    /// Removes the note from the cycle until it is released and struck again.
    void SetMIDINoteHasPlayed(std::int32_t setIndex);
    /// Returns true if any note is held and in the cycle.
    bool HoldsNotes() const;
    void ReleaseAllNotes() { notes_.fill(NoteState::NotHeld); }

    /// Applies a message to the table: a note-on holds its note, unless it is held already; a note-off, or a
    /// note-on of velocity 0, releases it. Other messages, and those on unticked channels, are ignored.
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
    enum class NoteState : std::uint8_t {
        NotHeld = 0,
        Held = 1,
        /// Held, but already played once and left out from now on.
        HasPlayed = 2
    };

    std::array<NoteState, Notes> notes_{};
};

}  // namespace quavix
