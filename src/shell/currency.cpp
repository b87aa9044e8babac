// SPDX-License-Identifier: MIT
#include "shell/currency.h"

#include <limits>

#include <fmt/format.h>

#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {

Currency Currency::FromDouble(double value) {
    return FromUnits(ToInt64(value * static_cast<double>(Scale)));
}

std::string Currency::ToText() const {
    // The unsigned magnitude also exists for the lowest number.
    const auto magnitude =
        units_ < 0 ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
    std::string text = fmt::format("{}{}.{:04}", units_ < 0 ? "-" : "", magnitude / Scale, magnitude % Scale);
    while (text.ends_with('0'))
        text.pop_back();
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

Currency operator+(Currency a, Currency b) {
    constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();
    if (b.units_ > 0 ? a.units_ > Highest - b.units_ : a.units_ < Lowest - b.units_)
        throw RuntimeError(RuntimeError::Overflow);
    return Currency(a.units_ + b.units_);
}

Currency operator-(Currency a, Currency b) {
    constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();
    if (b.units_ < 0 ? a.units_ > Highest + b.units_ : a.units_ < Lowest + b.units_)
        throw RuntimeError(RuntimeError::Overflow);
    return Currency(a.units_ - b.units_);
}

double operator/(Currency a, Currency b) {
    return Quotient(a.ToDouble(), b.ToDouble());
}

double Quotient(double dividend, double divisor) {
    if (divisor == 0)
        throw RuntimeError(dividend == 0 ? RuntimeError::Overflow : RuntimeError::DivisionByZero);
    return dividend / divisor;
}

}  // namespace quavix
