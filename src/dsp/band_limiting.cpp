// SPDX-License-Identifier: MIT
#include "dsp/band_limiting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace quavix {
namespace {

// The low-pass reaches half its height at 0.45 of the sample rate. With this window it is flat up to 0.36 (17
// kHz at 48 kHz) and 90 dB down from 0.54 on, which folds back to 0.46 (22 kHz at 48 kHz).
constexpr double StepCutoff = 0.45;
constexpr double StepKaiserBeta = 9.0;
constexpr double HalfWidth = BandLimitedStep::Taps / 2.0;

double Impulse(double time) {
    const double window = KaiserWindow(time / HalfWidth, StepKaiserBeta);
    const double angle = 2.0 * std::numbers::pi * StepCutoff * time;
    return window * (angle == 0.0 ? 1.0 : std::sin(angle) / angle);
}

// Returns the integral of the impulse at every 1 / Phases of a sample from -HalfWidth to HalfWidth, 0 to 1.
std::vector<double> Step() {
    constexpr int Points = BandLimitedStep::Taps * BandLimitedStep::Phases;
    constexpr double Spacing = 1.0 / BandLimitedStep::Phases;
    std::vector<double> step(Points + 1, 0.0);
    double left = Impulse(-HalfWidth);
    for (int i = 0; i < Points; i++) {
        const double middle = Impulse(-HalfWidth + (i + 0.5) * Spacing);
        const double right = Impulse(-HalfWidth + (i + 1.0) * Spacing);
        const auto at = static_cast<std::size_t>(i);
        step[at + 1] = step[at] + (left + 4.0 * middle + right);
        left = right;
    }
    const double whole = step.back();
    for (double& value : step)
        value /= whole;
    return step;
}

BandLimitedStep MakeTable() {
    const std::vector<double> step = Step();
    BandLimitedStep table;
    for (int phase = 0; phase <= BandLimitedStep::Phases; phase++)
        for (int tap = 0; tap < BandLimitedStep::Taps; tap++) {
            const double hard = tap > BandLimitedStep::Before ? 1.0 : 0.0;
            const double soft = step[static_cast<std::size_t>((tap + 1) * BandLimitedStep::Phases - phase)];
            table.Correction[static_cast<std::size_t>(phase)][static_cast<std::size_t>(tap)] =
                static_cast<float>(soft - hard);
        }
    return table;
}

}  // namespace

double KaiserWindow(double place, double beta) {
    const double inside = std::max(0.0, 1.0 - place * place);
    return std::cyl_bessel_i(0.0, beta * std::sqrt(inside)) / std::cyl_bessel_i(0.0, beta);
}

const BandLimitedStep& BandLimitedStepTable() {
    static const BandLimitedStep table = MakeTable();
    return table;
}

}  // namespace quavix
