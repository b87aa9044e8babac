// SPDX-License-Identifier: MIT
#include "music/lengths.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "shell/lower_case.h"

namespace quavix {
namespace {

struct Length {
    std::string_view AsWritten;
    double WholeNotes;
};

constexpr std::array<Length, 5> Lengths = {
    {{"Whole", 1.0}, {"Half", 0.5}, {"Quarter", 0.25}, {"1/8", 0.125}, {"1/16", 0.0625}}};

constexpr double DottedFactor = 1.5;
// Fifteen digits, not one third: the small difference is part of the timing.
constexpr double TripletFactor = 0.333333333333333;

}  // namespace

std::string GetLengthAsWritten(std::int32_t indexOfLength) {
    if (indexOfLength < 0 || indexOfLength >= static_cast<std::int32_t>(Lengths.size()))
        return {};
    return std::string(Lengths[static_cast<std::size_t>(indexOfLength)].AsWritten);
}

double GetEquivalentLength(std::string_view lengthAsWritten, std::string& modText) {
    const auto length = std::ranges::find(Lengths, lengthAsWritten, &Length::AsWritten);
    const double wholeNotes = length == Lengths.end() ? 0 : length->WholeNotes;
    modText = LowerCase(modText);
    if (modText.find("dot") != std::string::npos)
        return wholeNotes * DottedFactor;
    if (modText.find("tri") != std::string::npos)
        return wholeNotes * TripletFactor;
    return wholeNotes;
}

bool NoRemainder(float number) {
    return number == std::trunc(number);
}

}  // namespace quavix
