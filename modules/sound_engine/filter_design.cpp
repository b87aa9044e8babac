// SPDX-License-Identifier: MIT
#include "sound_engine/filter_design.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quavix::sound_engine {
namespace {

// Nearer to half the rate the formulas have nothing left between their poles and zeros.
constexpr double HighestPart = 0.49;

double Angle(double frequency, double framesPerSecond) {
    return 2.0 * std::numbers::pi * std::min(frequency / framesPerSecond, HighestPart);
}

}  // namespace

Biquad LowPassDesign(double cutoff, double resonance, double framesPerSecond) {
    const double angle = Angle(cutoff, framesPerSecond);
    const double cosine = std::cos(angle);
    const double alpha = std::sin(angle) / (2.0 * resonance);
    const double a0 = 1.0 + alpha;
    return {.B0 = (1.0 - cosine) / 2.0 / a0,
            .B1 = (1.0 - cosine) / a0,
            .B2 = (1.0 - cosine) / 2.0 / a0,
            .A1 = -2.0 * cosine / a0,
            .A2 = (1.0 - alpha) / a0};
}

Biquad EqualiserDesign(double centre, double octaves, double gain, double framesPerSecond) {
    const double angle = Angle(centre, framesPerSecond);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double alpha = sine * std::sinh(std::numbers::ln2 / 2.0 * octaves * angle / sine);
    const double a = std::sqrt(gain);
    const double a0 = 1.0 + alpha / a;
    return {.B0 = (1.0 + alpha * a) / a0,
            .B1 = -2.0 * cosine / a0,
            .B2 = (1.0 - alpha * a) / a0,
            .A1 = -2.0 * cosine / a0,
            .A2 = (1.0 - alpha / a) / a0};
}

}  // namespace quavix::sound_engine
