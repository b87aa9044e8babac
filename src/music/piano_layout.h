// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

/// Number of keys: three coloured groups of an octave each, C to B.
inline constexpr std::int32_t PianoKeyCount = 36;

/// The coloured groups, lowest first: an octave below KeyboardOctave, that octave, and one above.
enum class KeyGroup { Orange, Blue, Green };

struct PianoKeyPlace {
    KeyGroup Group{};
    /// 0 (C) to 11 (B).
    std::int32_t NoteNum = 0;
    /// Octaves relative to KeyboardOctave, -1 to 1.
    std::int32_t OctaveOffset = 0;
};

/// Returns the place of a key, 0 to PianoKeyCount - 1. Another index raises SubscriptOutOfRange.
PianoKeyPlace PlaceOfKey(std::int32_t index);

/// Returns the key that plays a note string (only the last character counts as its octave), or -1 if no key
/// does, or the text is no note.
std::int32_t KeyOfNote(std::string_view noteString, std::int32_t keyboardOctave);

/// Returns a key's note for speech: "C 4", "C sharp 4".
std::string SpokenKeyName(std::int32_t index, std::int32_t keyboardOctave);

}  // namespace quavix
