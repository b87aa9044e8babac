// SPDX-License-Identifier: MIT
#include "support/measure.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "support/spectrum.h"

namespace quavix::test {
namespace {

// The moments, in samples, at which the wave rises through 0. It has to have been clearly below 0 since the
// last one, so that noise around 0 is no wave.
std::vector<double> RisingCrossings(std::span<const float> samples) {
    const double clearly = -0.25 * Peak(samples);
    std::vector<double> crossings;
    bool wasBelow = false;
    for (std::size_t i = 1; i < samples.size(); i++) {
        const double before = samples[i - 1];
        const double now = samples[i];
        wasBelow = wasBelow || before < clearly;
        if (wasBelow && before < 0.0 && now >= 0.0) {
            crossings.push_back(static_cast<double>(i - 1) + before / (before - now));
            wasBelow = false;
        }
    }
    return crossings;
}

// The slope of the line nearest to the values.
double Slope(const std::vector<double>& values) {
    const double middle = (static_cast<double>(values.size()) - 1.0) / 2.0;
    double weighted = 0.0;
    double squares = 0.0;
    for (std::size_t i = 0; i < values.size(); i++) {
        const double place = static_cast<double>(i) - middle;
        weighted += place * values[i];
        squares += place * place;
    }
    return weighted / squares;
}

// Refines the frequency by the phase difference between an earlier and a later part of the samples.
double Refined(std::span<const float> samples, double sampleRate, double roughHz) {
    const std::size_t shift = samples.size() / 4;
    const std::size_t length = samples.size() - shift;
    const std::complex<double> early = Component(samples.first(length), sampleRate, roughHz);
    const std::complex<double> late = Component(samples.subspan(shift), sampleRate, roughHz);
    const double seconds = static_cast<double>(shift) / sampleRate;
    const double expected = 2.0 * std::numbers::pi * roughHz * seconds;
    const double gained = std::remainder(std::arg(late) - std::arg(early) - expected, 2.0 * std::numbers::pi);
    return roughHz + gained / (2.0 * std::numbers::pi * seconds);
}

}  // namespace

double FrequencyHz(std::span<const float> samples, double sampleRate) {
    const std::vector<double> crossings = RisingCrossings(samples);
    if (crossings.size() < 2)
        return 0.0;
    return Refined(samples, sampleRate, sampleRate / Slope(crossings));
}

double Cents(double frequencyHz, double expectedHz) {
    return 1200.0 * std::log2(frequencyHz / expectedHz);
}

double Rms(std::span<const float> samples) {
    double sum = 0.0;
    for (const double sample : samples)
        sum += sample * sample;
    return samples.empty() ? 0.0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

double Peak(std::span<const float> samples) {
    float peak = 0.0F;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

double Mean(std::span<const float> samples) {
    double sum = 0.0;
    for (const double sample : samples)
        sum += sample;
    return samples.empty() ? 0.0 : sum / static_cast<double>(samples.size());
}

Step BiggestStep(std::span<const float> samples) {
    Step biggest;
    for (std::size_t i = 1; i < samples.size(); i++) {
        const double height = std::abs(static_cast<double>(samples[i]) - static_cast<double>(samples[i - 1]));
        if (height > biggest.Height)
            biggest = {height, i};
    }
    return biggest;
}

std::vector<Tone> FindTones(std::span<const float> samples, double sampleRate, Gate gate) {
    std::vector<Tone> tones;
    for (std::size_t i = 0; i < samples.size(); i++) {
        if (std::abs(static_cast<double>(samples[i])) < gate.Level)
            continue;
        const auto at = static_cast<std::int64_t>(i);
        if (tones.empty() || at - tones.back().End >= gate.GapSamples)
            tones.push_back({at, at + 1, 0.0});
        tones.back().End = at + 1;
    }
    for (Tone& tone : tones)
        tone.FrequencyHz = FrequencyHz(samples.subspan(static_cast<std::size_t>(tone.Start),
                                                       static_cast<std::size_t>(tone.End - tone.Start)),
                                       sampleRate);
    return tones;
}

}  // namespace quavix::test
