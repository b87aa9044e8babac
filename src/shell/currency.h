// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quavix {

/// A fixed-point decimal with four decimals: a signed 64-bit count of ten-thousandths. Holds all times, beats
/// and counter readings of the program. Sums and differences are exact, and raise Overflow out of range.
class Currency {
  public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;

    /// Returns the number with a count of `units` ten-thousandths (counter readings are held this way).
    static constexpr Currency FromUnits(std::int64_t units) { return Currency(units); }

    /// Rounds to four decimals, halves to even. Raises Overflow out of range and for NaN.
    static Currency FromDouble(double value);

    constexpr std::int64_t Units() const { return units_; }
    double ToDouble() const { return static_cast<double>(units_) / static_cast<double>(Scale); }

    /// Returns the ordinary decimal form, without trailing zeros; every digit is exact.
    std::string ToText() const;

    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);

    /// Returns the quotient in double precision. Raises DivisionByZero for x / 0, and Overflow for 0 / 0.
    friend double operator/(Currency a, Currency b);

    friend constexpr auto operator<=>(Currency, Currency) = default;

  private:
    explicit constexpr Currency(std::int64_t units) : units_(units) {}

    std::int64_t units_ = 0;
};

/// Returns the quotient. Raises DivisionByZero for x / 0, and Overflow for 0 / 0.
double Quotient(double dividend, double divisor);

}  // namespace quavix
