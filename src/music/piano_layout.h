// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

/// How many keys the keyboard has: three coloured groups of an octave each, C to B.
inline constexpr std::int32_t PianoKeyCount = 36;

/// The coloured groups, from the lowest: an octave below KeyboardOctave, that octave, and one above.
enum class KeyGroup { Orange, Blue, Green };

struct PianoKeyPlace {
    KeyGroup Group{};
    /// 0 (C) to 11 (B).
    std::int32_t NoteNum = 0;
    /// Octaves away from KeyboardOctave, -1 to 1.
    std::int32_t OctaveOffset = 0;
};

/// Where a key 0 to PianoKeyCount - 1 is. Another index raises SubscriptOutOfRange.
PianoKeyPlace PlaceOfKey(std::int32_t index);

/// The key that plays a note string as it would sound (only the last character is its octave), -1 where the
/// keyboard has none, or the note is no note.
std::int32_t KeyOfNote(std::string_view noteString, std::int32_t keyboardOctave);

/// A key's note as it is spoken: "C 4", "C sharp 4".
std::string SpokenKeyName(std::int32_t index, std::int32_t keyboardOctave);

}  // namespace quavix
