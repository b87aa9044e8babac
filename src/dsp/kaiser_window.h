// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace quavix {

/// Returns the Kaiser window at `place`, -1..1; outside, its value at the edge. A greater `beta` widens the
/// main lobe and lowers the others: 9 is about 90 dB. Source: J. F. Kaiser, "Nonrecursive digital filter
/// design using the I0-sinh window function", 1974.
inline double KaiserWindow(double place, double beta) {
    const double inside = std::max(0.0, 1.0 - place * place);
    return std::cyl_bessel_i(0.0, beta * std::sqrt(inside)) / std::cyl_bessel_i(0.0, beta);
}

}  // namespace quavix
