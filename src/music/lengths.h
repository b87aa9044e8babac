// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

/// Beats in a whole note: a beat is a quarter note.
inline constexpr double BeatsPerWholeNote = 4;
inline constexpr std::int32_t SecondsPerMinute = 60;

/// Returns the length as written ("Whole", "Half", "Quarter", "1/8", "1/16") for an index 0..4 of the
/// note-length list; an empty text for any other index.
std::string GetLengthAsWritten(std::int32_t indexOfLength);

/// Returns a length in whole notes. `lengthAsWritten` must be spelled exactly, else the result is 0.
/// Multiplies by 1.5 if `modText` contains "dot" in any letter case, else by 0.333333333333333 if it contains
/// "tri". Changes `modText` to lower case.
double GetEquivalentLength(std::string_view lengthAsWritten, std::string& modText);

/// Returns true if a number has no fractional part.
bool NoRemainder(float number);

}  // namespace quavix
