// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quavix {

/// A fixed-point decimal with four decimals: a signed 64-bit count of ten-thousandths. All times, beats and
/// counter readings of the program are held in it. Sums and differences are exact; whatever leaves the range
/// raises Overflow.
class Currency {
  public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;

    /// The number whose count of ten-thousandths is `units` (a counter reading is held this way).
    static constexpr Currency FromUnits(std::int64_t units) { return Currency(units); }

    /// Nearest number with four decimals, halves to even. Raises Overflow out of range and for NaN.
    static Currency FromDouble(double value);

    constexpr std::int64_t Units() const { return units_; }
    double ToDouble() const { return static_cast<double>(units_) / static_cast<double>(Scale); }

    /// Ordinary decimal form, without trailing zeros; every digit is exact.
    std::string ToText() const;

    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);

    /// Quotient in double precision. Division by 0 raises DivisionByZero, or Overflow for 0 / 0.
    friend double operator/(Currency a, Currency b);

    friend constexpr auto operator<=>(Currency, Currency) = default;

  private:
    explicit constexpr Currency(std::int64_t units) : units_(units) {}

    std::int64_t units_ = 0;
};

/// Quotient with the classic errors: x / 0 raises DivisionByZero, 0 / 0 raises Overflow.
double Quotient(double dividend, double divisor);

}  // namespace quavix
