// SPDX-License-Identifier: MIT
#include "modules/sound_engine/wave.h"

#include <array>

#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {
namespace {

using Rows = BandLimitedStep::Rows;

// A corner is the integral of a jump, and so is its correction. Time runs in steps of one phase: from row
// Phases down to row 0 of a tap, then on to the next tap. The two adjacent rows differ only at the jump.
Rows CornerRows(const Rows& jump) {
    constexpr std::size_t Phases = BandLimitedStep::Phases;
    Rows corner;
    double sum = 0.0;
    for (std::size_t tap = 0; tap < BandLimitedStep::Taps; ++tap) {
        corner[Phases][tap] = static_cast<float>(sum);
        for (std::size_t phase = Phases; phase-- > 0;) {
            sum += 0.5 * (static_cast<double>(jump[phase + 1][tap]) + static_cast<double>(jump[phase][tap])) /
                   static_cast<double>(Phases);
            corner[phase][tap] = static_cast<float>(sum);
        }
    }
    return corner;
}

const Rows& CornerTable() {
    static const Rows corner = CornerRows(BandLimitedStepTable().Correction);
    return corner;
}

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

// Adds the correction of an edge whenever the wave passes the phase `at`. Integer arithmetic keeps an edge on
// the same side of a sample as the wave itself.
void AddEdges(const Rows& rows, float height, Phase at, float* out, std::size_t frames, Phase phase,
              Phase step, Weight weight) {
    const Phase way = at - phase;
    if (step == 0 || (way - 1) / frames >= step)
        return;
    // First sample at or after the edge, and its distance after it. A distance of 0 is a whole period,
    // because that edge was passed before.
    Phase sample = (way - 1) / step + 1;
    Phase passed = sample * step - way;
    while (sample <= frames) {
        const double place = 1.0 - static_cast<double>(passed) / static_cast<double>(step);
        const float heard = weight.Start + weight.Step * static_cast<float>(sample);
        // The local array tells the compiler that nothing overlaps.
        const BandLimitedStep::Row correction =
            BandLimitedStep::Between(rows, place * BandLimitedStep::Phases, height * heard);
        float* const samples = out + sample - 1;
        for (std::size_t tap = 0; tap < correction.size(); ++tap)
            samples[tap] += correction[tap];
        // Distance to the next edge: never 0, because a step is at most half a period.
        const Phase rest = Phase{0} - passed;
        const Phase steps = (rest - 1) / step + 1;
        sample += steps;
        passed = steps * step - rest;
    }
}

}  // namespace

Waves::Waves() : jump_(BandLimitedStepTable().Correction), corner_(CornerTable()) {}

void Waves::AddSine(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) {
    AddAll(out + Delay, frames, phase, step, weight, [](std::int32_t p) { return Sine(Folded(p)); });
}

void Waves::AddSquare(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight,
           [](std::int32_t p) { return 1.0F + 2.0F * static_cast<float>(p >> 31); });
    AddEdges(jump_, 2.0F, 0, out, frames, phase, step, weight);
    AddEdges(jump_, -2.0F, HalfPeriod, out, frames, phase, step, weight);
}

void Waves::AddRisingSaw(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight,
           [](std::int32_t p) { return static_cast<float>(p) * Unit31; });
    AddEdges(jump_, -2.0F, HalfPeriod, out, frames, phase, step, weight);
}

void Waves::AddTriangle(float* out, std::size_t frames, Phase phase, Phase step, Weight weight) const {
    AddAll(out + Delay, frames, phase, step, weight, [](std::int32_t p) { return 2.0F * Folded(p); });
    // At a corner the slope changes by 8 per period, from 4 to -4 or back.
    const float slope = 8.0F * static_cast<float>(step >> 32) / 4294967296.0F;
    AddEdges(corner_, -slope, QuarterPeriod, out, frames, phase, step, weight);
    AddEdges(corner_, slope, QuarterPeriod + HalfPeriod, out, frames, phase, step, weight);
}

}  // namespace quavix::sound_engine
