// SPDX-License-Identifier: MIT
#include "modules/sound_engine/wave.h"

#include <algorithm>
#include <array>

#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {

const Edges& Edges::Tables() {
    static const Edges edges;
    return edges;
}

// A corner is the integral of a jump, and so is its correction. Time runs in steps of one phase: from row
// Phases down to row 0 of a tap, then on to the next tap. The two adjacent rows differ only at the jump.
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
    // The local array tells the compiler that nothing overlaps.
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

namespace {

constexpr Phase HalfPeriod = Phase{1} << 63;
constexpr Phase QuarterPeriod = Phase{1} << 62;

// Phases of all samples as signed fractions: -2^31 .. 2^31 - 1 is one period around 0.
using Phases = std::array<std::int32_t, Processor::MostFrames>;

void Fill(Phases& phases, std::size_t frames, Phase phase, Phase step) {
    for (std::size_t i = 0; i < frames; ++i) {
        phases[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(phase >> 32));
        phase += step;
    }
}

constexpr float Unit31 = 1.0F / 2147483648.0F;

// Triangle: rises from 0 to 1/2 at a quarter period, falls to -1/2 at three quarters.
float Folded(std::int32_t phase) {
    // All ones in the half period around the middle, where the two highest bits differ.
    const std::int32_t beyond =
        (phase ^ static_cast<std::int32_t>(static_cast<std::uint32_t>(phase) << 1)) >> 31;
    return static_cast<float>(phase ^ (beyond & 0x7fffffff)) * Unit31;
}

// Returns sin(pi x) for x of -1/2..1/2, exact to 1e-7.
float Sine(float x) {
    const float s = x * x;
    return x * (3.14159265F +
                s * (-5.16771278F +
                     s * (2.55016404F + s * (-0.599264529F + s * (0.0821458866F + s * -0.00737043095F)))));
}

template <class Function>
void AddAll(float* out, std::size_t frames, Phase phase, Phase step, Weight weight, Function function) {
    Phases phases;
    Fill(phases, frames, phase, step);
    if (weight.Step == 0.0F) {
        for (std::size_t i = 0; i < frames; ++i)
            out[i] += weight.Start * function(phases[i]);
    } else {
        for (std::size_t i = 0; i < frames; ++i)
            out[i] += (weight.Start + weight.Step * static_cast<float>(static_cast<std::int32_t>(i))) *
                      function(phases[i]);
    }
}

// Calls `edge(sample, place)` whenever the wave passes the phase `at`, which is `place` (0..1] samples after
// `sample`. Integer arithmetic keeps an edge on the same side of a sample as the wave itself.
template <class Function>
void ForEachPassing(Phase at, std::size_t frames, Phase phase, Phase step, Function edge) {
    const Phase way = at - phase;
    if (step == 0 || (way - 1) / frames >= step)
        return;
    Phase passed = 0;  // distance of a sample behind the edge
    // First sample at or behind the edge. A distance of 0 is a whole period, because that edge was passed
    // before.
    Phase sample = (way - 1) / step + 1;
    passed = sample * step - way;
    while (sample <= frames) {
        edge(static_cast<std::size_t>(sample - 1),
             1.0 - static_cast<double>(passed) / static_cast<double>(step));
        // Distance to the next edge: never 0, because a step is at most half a period.
        const Phase rest = Phase{0} - passed;
        const Phase steps = (rest - 1) / step + 1;
        sample += steps;
        passed = steps * step - rest;
    }
}

}  // namespace

void Waves::AddSine(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) {
    AddAll(out + Delay, frames, phase, step, weight, [](std::int32_t p) { return Sine(Folded(p)); });
}

void Waves::AddSquare(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight,
           [](std::int32_t p) { return 1.0F + 2.0F * static_cast<float>(p >> 31); });
    const auto jump = [&](float height) {
        return [=, this](std::size_t sample, double place) {
            const float heard = weight.Start + weight.Step * (static_cast<float>(sample) + 1.0F);
            edges_.AddJump(out + sample, place, height * heard);
        };
    };
    ForEachPassing(0, frames, phase, step, jump(2.0F));
    ForEachPassing(HalfPeriod, frames, phase, step, jump(-2.0F));
}

void Waves::AddRisingSaw(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight,
           [](std::int32_t p) { return static_cast<float>(p) * Unit31; });
    ForEachPassing(HalfPeriod, frames, phase, step, [&](std::size_t sample, double place) {
        const float heard = weight.Start + weight.Step * (static_cast<float>(sample) + 1.0F);
        edges_.AddJump(out + sample, place, -2.0F * heard);
    });
}

void Waves::AddTriangle(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight, [](std::int32_t p) { return 2.0F * Folded(p); });
    // At a corner the slope changes by 8 per period, from 4 to -4 or back.
    const float slope = 8.0F * static_cast<float>(step >> 32) / 4294967296.0F;
    const auto corner = [&](float direction) {
        return [=, this](std::size_t sample, double place) {
            const float heard = weight.Start + weight.Step * (static_cast<float>(sample) + 1.0F);
            edges_.AddCorner(out + sample, place, direction * slope * heard);
        };
    };
    ForEachPassing(QuarterPeriod, frames, phase, step, corner(-1.0F));
    ForEachPassing(QuarterPeriod + HalfPeriod, frames, phase, step, corner(1.0F));
}

}  // namespace quavix::sound_engine
