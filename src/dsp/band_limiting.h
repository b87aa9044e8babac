// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace quavix {

/// Returns the Kaiser window at `place`, -1..1; outside, its value at the edge. A greater `beta` widens the
/// main lobe and lowers the others: 9 is about 90 dB. Source: J. F. Kaiser, "Nonrecursive digital filter
/// design using the I0-sinh window function", 1974.
double KaiserWindow(double place, double beta);

/// The correction of a hard step from 0 to 1: added to the step, it removes the parts above half the sample
/// rate.
///
/// The hard step is 0 up to and including the sample at or before the edge, and 1 from the next sample on.
/// Row p holds the correction for an edge p / Phases of a sample after a sample; its element m belongs to the
/// sample m - Before samples after that one. Between rows, interpolate linearly.
struct BandLimitedStep {
    /// Samples that one edge changes, and how many of them precede the sample at or before the edge.
    static constexpr int Taps = 32;
    static constexpr int Before = Taps / 2 - 1;
    /// Rows per sample; row Phases is the edge on the following sample.
    static constexpr int Phases = 128;

    using Row = std::array<float, Taps>;
    using Rows = std::array<Row, Phases + 1>;
    Rows Correction;

    /// Returns the correction for an edge of `height` at `phase`, 0..Phases.
    static Row Between(const Rows& rows, double phase, float height) {
        const std::size_t row = std::min<std::size_t>(static_cast<std::size_t>(phase), Phases - 1);
        const auto between = static_cast<float>(phase - static_cast<double>(row));
        Row correction;
        for (std::size_t tap = 0; tap < correction.size(); ++tap)
            correction[tap] = height * (rows[row][tap] + between * (rows[row + 1][tap] - rows[row][tap]));
        return correction;
    }
};

/// Returns the table. Computed at the first call (about 1 ms), on any thread.
const BandLimitedStep& BandLimitedStepTable();

}  // namespace quavix
