// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// The notes that are held down, by MIDI note number. A number outside 0..127 raises SubscriptOutOfRange.
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

/// A label of the grid of held notes.
struct OnNoteLabel {
    /// Colour values as the main window's fields have them.
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

    /// True when the note is held and still to be cycled.
    bool GetMIDINoteIsOn(std::int32_t checkIndex) const { return notes_.At(checkIndex) == HeldNotes::Held; }
    /// The note drops out of the cycle until it is released and struck again.
    void SetMIDINoteHasPlayed(std::int32_t setIndex) { notes_.SetHasPlayed(setIndex); }
    /// Some note is held and still to be cycled.
    bool HoldsNotes() const;
    void ReleaseAllNotes() { notes_.ReleaseAll(); }

    /// A message changes the table: a note-on holds its note, a note-off or a note-on of velocity 0 releases
    /// it. Other messages, and those on channels that aren't ticked, are ignored. A `data1` outside 0..127
    /// raises SubscriptOutOfRange.
    void TakeMessage(std::int32_t status, std::int32_t data1, std::int32_t data2);

    /// The same, ignoring also messages with a `data1` outside 0..127.
    void SimulateMIDIMessage(std::int32_t message, std::int32_t data1, std::int32_t data2);

    /// A note drops out of the cycle when it has been played. OnlyOnceCheck sets it.
    bool OnlyPlayNoteOnce = false;

    // The controls.
    /// Un-ticking one releases all held notes, whatever their channels.
    std::array<Watched<bool>, Channels> ListenChannelCheck;
    Watched<bool> SaveCPUCheck;
    Watched<bool> AutoTimeCheck;
    Watched<bool> OnlyOnceCheck;
    /// Changed all at once.
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
