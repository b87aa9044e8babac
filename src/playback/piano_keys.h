// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "music/main_fields.h"
#include "music/note_entry.h"
#include "playback/position_display.h"
#include "playback/tone_dispatcher.h"
#include "shell/debug_log.h"

namespace quavix {

/// The keys of the on-screen keyboard, 0 to 35 from the left.
class PianoKeys {
  public:
    // Key codes and shift states of PianoKey_KeyDown().
    static constexpr std::int32_t UpArrow = 38;
    static constexpr std::int32_t DownArrow = 40;
    static constexpr std::int32_t CtrlOnly = 2;

    PianoKeys(EntryOptions& options, const PlaybackView& view, NoteEntry& entry, ToneDispatcher& tones,
              PositionDisplay& position, DebugLog& log)
        : options_(options), view_(view), entry_(entry), tones_(tones), position_(position), log_(log) {}

    /// Sounds the key's note and enters it into the list, as the options say. A click during another one's
    /// tone returns at once and is handled afterwards with the octave of its own time, so notes are entered
    /// in the order of the clicks. Raises Overflow before any sound if the key's octave is below 0 or above
    /// 255, and SubscriptOutOfRange for an index that is no key. Waiting clicks are handled even after an
    /// error; the first error is raised.
    void PianoKey_Click(std::int32_t index);

    /// Handles the octave keys: Ctrl with the up or down arrow moves KeyboardOctave within 2 to 9. Other keys
    /// do nothing. `index` has no effect.
    void PianoKey_KeyDown(std::int32_t index, std::int32_t keyCode, std::int32_t shift);

    /// Returns the caption above a group of keys, 0 to 2 from the left: its octave.
    std::string OctLabel(std::int32_t group) const;

    /// Returns true if a key's note belongs to the sounding line of playback (PlaybackView::NotesSounding).
    bool IsSounding(std::int32_t index) const;

  private:
    struct KeyClick {
        std::int32_t Index;
        std::int32_t KeyboardOctave;
    };

    void Handle(const KeyClick& click);

    EntryOptions& options_;
    const PlaybackView& view_;
    NoteEntry& entry_;
    ToneDispatcher& tones_;
    PositionDisplay& position_;
    DebugLog& log_;
    /// Clicks in order; the first one is being handled.
    std::deque<KeyClick> clicks_;
};

}  // namespace quavix
