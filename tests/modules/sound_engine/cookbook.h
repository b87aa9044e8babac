// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <complex>
#include <numbers>

namespace quavix::test {

// Responses of the filters of the Audio EQ Cookbook (R. Bristow-Johnson) to a sine of `hz` at 48000 samples
// per second: the analogue filter that the cookbook begins with, at the place to which its bilinear transform
// takes the frequency.

inline constexpr double CookbookRate = 48000.0;

inline double Db(double amplitude) {
    return 20.0 * std::log10(amplitude);
}

/// The analogue frequency for the filter's own being 1.
inline std::complex<double> CookbookPlace(double hz, double centre) {
    const auto warped = [](double f) { return std::tan(std::numbers::pi * f / CookbookRate); };
    return {0.0, warped(hz) / warped(centre)};
}

/// H(s) = 1 / (s^2 + s/Q + 1)
inline std::complex<double> CookbookLowPass(double hz, double cutoff, double q) {
    const std::complex<double> s = CookbookPlace(hz, cutoff);
    return 1.0 / (s * s + s / q + 1.0);
}

/// H(s) = (s^2 + s A/Q + 1) / (s^2 + s / (A Q) + 1), 1/Q = 2 sinh(ln 2 / 2 * octaves * w / sin w), A =
/// sqrt(gain)
inline std::complex<double> CookbookPeak(double hz, double centre, double octaves, double gain) {
    const std::complex<double> s = CookbookPlace(hz, centre);
    const double w = 2.0 * std::numbers::pi * centre / CookbookRate;
    const double inverseQ = 2.0 * std::sinh(std::numbers::ln2 / 2.0 * octaves * w / std::sin(w));
    const double a = std::sqrt(gain);
    return (s * s + s * a * inverseQ + 1.0) / (s * s + s * inverseQ / a + 1.0);
}

}  // namespace quavix::test
