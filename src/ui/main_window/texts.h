// SPDX-License-Identifier: MIT
#pragma once

// Texts of the main window that several controls use, or that are long. Lines of messages end in CR LF or LF.
namespace quavix::text {

inline constexpr const char* PianoKeyTip =
    "Click any of these keys on this keyboard to hear the note / add it to the list of music (depending on "
    "the options on the left of this window)";
inline constexpr const char* OctLabelTip =
    "Says what octave (multiple of pitch) the notes will be made in when you click a key in the coloured "
    "group below";
inline constexpr const char* KeyboardOctaveTip =
    "Changes the numbers above each coloured section of the keyboard which represent what octave (multiple "
    "of pitch) of the note those keys make";
inline constexpr const char* NoteLengthTip =
    "The length of note to insert into the list of music when you click a key on the keyboard";

/// Entries of NoteLengthCombo, in the order of the lengths.
inline constexpr const char* NoteLengths[] = {"1 (Whole)", "1/2 (Half)", "1/4 (Quarter)", "1/8", "1/16"};

}  // namespace quavix::text
