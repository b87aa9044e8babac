// SPDX-License-Identifier: MIT
#include "shell/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include <fmt/format.h>

#include "shell/runtime_error.h"

namespace quavix {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number at the start of a text without blanks, and its length in characters (0: no number).
struct Reading {
    double Value = 0;
    std::size_t Length = 0;
};

/// Returns true if a number's magnitude is below 1, judged by the place of its first digit other than 0.
bool IsBelowOne(std::string_view number) {
    const std::size_t exponentAt = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, exponentAt);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    if (firstDigit == std::string_view::npos)
        return true;
    const double place = static_cast<double>(point) - static_cast<double>(firstDigit);
    double exponent = 0;
    for (const char c : number.substr(exponentAt)) {
        if (IsDigit(c))
            exponent = exponent * 10 + (c - '0');
    }
    const bool negativeExponent = number.substr(exponentAt).find('-') != std::string_view::npos;
    return place + (negativeExponent ? -exponent : exponent) <= 0;
}

Reading ReadNumber(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'E' || c == 'd' || c == 'D'; }, 'e');
    const bool isNegative = text.starts_with('-');
    const std::size_t first = isNegative || text.starts_with('+') ? 1 : 0;
    // from_chars also reads a second sign, and words for infinity.
    if (first == text.size() || (!IsDigit(text[first]) && text[first] != '.'))
        return {};
    Reading reading;
    const auto [end, error] = std::from_chars(text.data() + first, text.data() + text.size(), reading.Value);
    if (error == std::errc::invalid_argument)
        return {};
    reading.Length = static_cast<std::size_t>(end - text.data());
    // If the value is out of range, from_chars does not set it.
    if (error == std::errc::result_out_of_range)
        reading.Value = IsBelowOne(std::string_view(text).substr(first, reading.Length - first))
                            ? 0
                            : std::numeric_limits<double>::infinity();
    if (isNegative)
        reading.Value = -reading.Value;
    return reading;
}

template <typename T>
T ToInteger(double value) {
    const double rounded = RoundHalfEven(value);
    // The highest value plus one is a power of two, and so exact. The comparison is false for NaN.
    const double limit = std::ldexp(1.0, std::numeric_limits<T>::digits);
    if (!(rounded >= static_cast<double>(std::numeric_limits<T>::min()) && rounded < limit))
        throw RuntimeError(RuntimeError::Overflow);
    return static_cast<T>(rounded);
}

}  // namespace

double RoundHalfEven(double value) {
    // The program uses the default rounding mode, to nearest even, throughout.
    return std::nearbyint(value);
}

std::int64_t ToInt64(double value) {
    return ToInteger<std::int64_t>(value);
}

std::int32_t ToInt32(double value) {
    return ToInteger<std::int32_t>(value);
}

std::int16_t ToInt16(double value) {
    return ToInteger<std::int16_t>(value);
}

std::uint8_t ToByte(double value) {
    return ToInteger<std::uint8_t>(value);
}

double Val(std::string_view text) {
    std::string packed(text);
    std::erase_if(packed, IsBlank);
    return ReadNumber(std::move(packed)).Value;
}

bool IsNumeric(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    const Reading reading = ReadNumber(std::string(text));
    return reading.Length > 0 && reading.Length == text.size();
}

std::string NumberText(double value) {
    if (value == 0)
        return "0";  // also for the negative zero
    return fmt::format("{:.15g}", value);
}

std::string FormatNumber(double value, int integerDigits, int decimals) {
    const double scale = std::pow(10.0, decimals);
    // Rounds by the value of the decimal text, so that 0.285 (slightly below in binary) counts as a half.
    const double nudged = std::abs(value) * scale;
    const double rounded = std::floor(nudged + 0.5 + nudged * 4e-16) / scale;
    const int width = integerDigits + (decimals > 0 ? decimals + 1 : 0);
    const char* sign = value < 0 && rounded > 0 ? "-" : "";
    return fmt::format("{}{:0{}.{}f}", sign, rounded, width, decimals);
}

std::string NumPad(double numToPad, std::string_view padChar, int numChars) {
    std::string text = NumberText(numToPad);
    const auto wanted = static_cast<std::size_t>(numChars > 0 ? numChars : 0);
    if (text.size() < wanted && !padChar.empty())
        text.insert(0, wanted - text.size(), padChar.front());
    return text;
}

}  // namespace quavix
