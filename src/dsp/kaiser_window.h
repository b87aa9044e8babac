// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace quavix {

/// The Kaiser window at `place`, -1..1, and its edge outside of that; the greater `beta`, the wider its main
/// lobe and the lower the others: 9 is about 90 dB. J. F. Kaiser, "Nonrecursive digital filter design using
/// the I0-sinh window function", 1974.
inline double KaiserWindow(double place, double beta) {
    const double inside = std::max(0.0, 1.0 - place * place);
    return std::cyl_bessel_i(0.0, beta * std::sqrt(inside)) / std::cyl_bessel_i(0.0, beta);
}

}  // namespace quavix
