// SPDX-License-Identifier: MIT
#include "support/spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace quavix::test {
namespace {

constexpr double Silence = -300.0;
// Steps of the spectrum that a tone smears over to either side.
constexpr double SmearSteps = 4.5;

// Of mean 1.
double Window(std::size_t index, std::size_t size) {
    const double angle =
        2.0 * std::numbers::pi * (static_cast<double>(index) + 0.5) / static_cast<double>(size);
    return (0.35875 - 0.48829 * std::cos(angle) + 0.14128 * std::cos(2.0 * angle) -
            0.01168 * std::cos(3.0 * angle)) /
           0.35875;
}

double Decibels(double amplitude) {
    return amplitude > 1e-15 ? 20.0 * std::log10(amplitude) : Silence;
}

void Transform(std::vector<std::complex<double>>& values) {
    const std::size_t size = values.size();
    for (std::size_t i = 1, j = 0; i < size; i++) {
        std::size_t bit = size >> 1;
        for (; j & bit; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j)
            std::swap(values[i], values[j]);
    }
    for (std::size_t length = 2; length <= size; length *= 2) {
        std::vector<std::complex<double>> turns(length / 2);
        for (std::size_t k = 0; k < turns.size(); k++)
            turns[k] = std::polar(
                1.0, -2.0 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(length));
        for (std::size_t start = 0; start < size; start += length)
            for (std::size_t k = 0; k < length / 2; k++) {
                const std::complex<double> even = values[start + k];
                const std::complex<double> odd = values[start + k + length / 2] * turns[k];
                values[start + k] = even + odd;
                values[start + k + length / 2] = even - odd;
            }
    }
}

}  // namespace

std::complex<double> Component(std::span<const float> samples, double sampleRate, double frequencyHz) {
    if (samples.empty())
        return 0.0;
    const double turn = 2.0 * std::numbers::pi * frequencyHz / sampleRate;
    const double middle = (static_cast<double>(samples.size()) - 1.0) / 2.0;
    std::complex<double> sum = 0.0;
    for (std::size_t i = 0; i < samples.size(); i++)
        sum += Window(i, samples.size()) * static_cast<double>(samples[i]) *
               std::polar(1.0, -turn * (static_cast<double>(i) - middle));
    return sum * (2.0 / static_cast<double>(samples.size()));
}

double LevelDb(std::span<const float> samples, double sampleRate, double frequencyHz) {
    return Decibels(std::abs(Component(samples, sampleRate, frequencyHz)));
}

Spectrum::Spectrum(std::span<const float> samples, double sampleRate) {
    const std::size_t size = std::bit_floor(samples.size());
    if (size < 2)
        return;
    std::vector<std::complex<double>> values(size);
    for (std::size_t i = 0; i < size; i++)
        values[i] = Window(i, size) * static_cast<double>(samples[i]);
    Transform(values);
    stepHz_ = sampleRate / static_cast<double>(size);
    for (std::size_t i = 0; i <= size / 2; i++)
        levels_.push_back(Decibels(std::abs(values[i]) * 2.0 / static_cast<double>(size)));
}

double Spectrum::HighestDb(double fromHz, double toHz) const {
    return HighestDbBetweenHarmonics(fromHz, toHz, 0.0);
}

double Spectrum::HighestDbBetweenHarmonics(double fromHz, double toHz, double fundamentalHz) const {
    double highest = Silence;
    for (std::size_t i = 0; i < levels_.size(); i++) {
        const double frequency = static_cast<double>(i) * stepHz_;
        if (frequency < fromHz || frequency > toHz)
            continue;
        const bool harmonic =
            fundamentalHz > 0.0 && std::abs(std::remainder(frequency, fundamentalHz)) <= SmearSteps * stepHz_;
        if (!harmonic)
            highest = std::max(highest, levels_[i]);
    }
    return highest;
}

}  // namespace quavix::test
