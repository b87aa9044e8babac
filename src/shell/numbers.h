// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

// The program's conversions between numbers and texts. All code uses these.

/// Returns the nearest whole number, halves to even.
double RoundHalfEven(double value);

/// Returns the nearest whole number, halves to even. Raises Overflow outside the type's range and for NaN.
std::int64_t ToInt64(double value);
std::int32_t ToInt32(double value);
std::int16_t ToInt16(double value);
std::uint8_t ToByte(double value);

/// Returns the number that `text` begins with, else 0. Blanks, tabs and line feeds are skipped anywhere; a
/// sign, a decimal point and an exponent (E or D) are accepted; reading stops at anything else. Values too
/// large for a double give infinity, which every whole-number conversion rejects.
double Val(std::string_view text);

/// Returns true if the whole text is one number in Val's syntax, with blanks only before and after it.
bool IsNumeric(std::string_view text);

/// Returns a decimal form: at most 15 significant digits, no trailing zeros, "." as the decimal point.
std::string NumberText(double value);

/// Returns a fixed form with at least `integerDigits` digits before the point and exactly `decimals` after
/// it, halves away from zero; FormatNumber(3.5, 2, 2) is "03.50", the format "00.00".
std::string FormatNumber(double value, int integerDigits, int decimals = 0);

/// Returns the number's decimal text, padded on the left with `padChar`'s first character to `numChars`
/// characters. A longer text stays unchanged.
std::string NumPad(double numToPad, std::string_view padChar, int numChars);

}  // namespace quavix
