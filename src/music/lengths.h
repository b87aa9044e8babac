// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

/// A beat is a quarter note.
inline constexpr double BeatsPerWholeNote = 4;
inline constexpr std::int32_t SecondsPerMinute = 60;

/// Length as written ("Whole", "Half", "Quarter", "1/8", "1/16") for a choice 0..4 of the note-length list;
/// an empty text for any other index.
std::string GetLengthAsWritten(std::int32_t indexOfLength);

/// Length in whole notes of a length as written (exactly as spelled, else 0), times 1.5 where the mod text
/// contains "dot", else times 0.333333333333333 where it contains "tri", in any letter case. The mod text
/// comes back in lower case.
double GetEquivalentLength(std::string_view lengthAsWritten, std::string& modText);

/// Whether a number has no fractional part.
bool NoRemainder(float number);

}  // namespace quavix
