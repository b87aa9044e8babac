// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quavix {

// The conversions between numbers and texts that the whole program shares; nobody rounds or reads by hand.

/// Nearest whole number, halves to the even one.
double RoundHalfEven(double value);

/// Nearest whole number, halves to even. Raises Overflow outside the type's range and for NaN.
std::int64_t ToInt64(double value);
std::int32_t ToInt32(double value);
std::int16_t ToInt16(double value);
std::uint8_t ToByte(double value);

/// Lenient reading: the number that `text` begins with, else 0. Blanks, tabs and line feeds are passed over
/// wherever they stand; a sign, a decimal point and an exponent (E or D) are understood; reading stops at
/// anything else. Values too large for a double give infinity, which no whole-number conversion takes.
double Val(std::string_view text);

/// Returns true if the whole text is one number as Val reads it, with blanks only before and after it.
bool IsNumeric(std::string_view text);

/// Ordinary decimal form: at most 15 significant digits, no trailing zeros, "." as the decimal point.
std::string NumberText(double value);

/// Fixed form with at least `integerDigits` digits before the point and exactly `decimals` after it, halves
/// away from zero; FormatNumber(3.5, 2, 2) is "03.50", the format "00.00".
std::string FormatNumber(double value, int integerDigits, int decimals = 0);

/// The number's decimal text, with copies of `padChar`'s first character in front up to `numChars`
/// characters. A longer text is returned unchanged.
std::string NumPad(double numToPad, std::string_view padChar, int numChars);

}  // namespace quavix
