// SPDX-License-Identifier: MIT
#include "sound_engine/edges.h"

#include <algorithm>

namespace quavix::sound_engine {

const Edges& Edges::Tables() {
    static const Edges edges;
    return edges;
}

// A corner is a jump summed up over time, and so is what smoothes it. Time runs here in steps of a phase:
// from row Phases down to row 0 of a tap, then on to the next tap. Only at the jump itself the two rows that
// meet differ.
Edges::Edges() : jump_(BandLimitedStepTable().Correction) {
    constexpr std::size_t Phases = BandLimitedStep::Phases;
    double sum = 0.0;
    for (std::size_t tap = 0; tap < Taps; ++tap) {
        corner_[Phases][tap] = static_cast<float>(sum);
        for (std::size_t phase = Phases; phase-- > 0;) {
            sum += 0.5 *
                   (static_cast<double>(jump_[phase + 1][tap]) + static_cast<double>(jump_[phase][tap])) /
                   static_cast<double>(Phases);
            corner_[phase][tap] = static_cast<float>(sum);
        }
    }
}

void Edges::Add(const Rows& rows, float* samples, double place, float height) {
    const double phase = place * BandLimitedStep::Phases;
    const std::size_t row = std::min(static_cast<std::size_t>(phase), rows.size() - 2);
    const auto between = static_cast<float>(phase - static_cast<double>(row));
    const BandLimitedStep::Row& lower = rows[row];
    const BandLimitedStep::Row& upper = rows[row + 1];
    // By way of a local array, which the compiler knows to overlap nothing.
    BandLimitedStep::Row sum;
    for (std::size_t tap = 0; tap < Taps; ++tap)
        sum[tap] = samples[tap] + height * (lower[tap] + between * (upper[tap] - lower[tap]));
    std::copy(sum.begin(), sum.end(), samples);
}

void Edges::AddJump(float* samples, double place, float height) const {
    Add(jump_, samples, place, height);
}

void Edges::AddCorner(float* samples, double place, float slope) const {
    Add(corner_, samples, place, slope);
}

}  // namespace quavix::sound_engine
