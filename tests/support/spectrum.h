// SPDX-License-Identifier: MIT
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace quavix::test {

// Levels in dB are relative to a sine whose peaks are at ±1; a square wave of ±1 has its fundamental at
// +2.1 dB. Both measurements look through a Blackman-Harris window: a tone smears over 4 * sampleRate /
// length Hz to either side, and is 90 dB down beyond.

/// Level of what `samples` contain at exactly `frequencyHz`, in dB; -300 for nothing at all.
double LevelDb(std::span<const float> samples, double sampleRate, double frequencyHz);

/// Amplitude and phase of the same: a cosine of that phase at the middle of the samples.
std::complex<double> Component(std::span<const float> samples, double sampleRate, double frequencyHz);

/// The levels at all multiples of sampleRate / size Hz from 0 to half the sample rate, in dB. `size` is the
/// largest power of two that is not above the number of samples; only the first `size` samples are looked at.
class Spectrum {
  public:
    Spectrum(std::span<const float> samples, double sampleRate);

    /// The highest level from `fromHz` to `toHz`.
    double HighestDb(double fromHz, double toHz) const;

    /// The highest level from `fromHz` to `toHz` that belongs to no multiple of `fundamentalHz` (0 included):
    /// the aliases and the noise of a tone.
    double HighestDbBetweenHarmonics(double fromHz, double toHz, double fundamentalHz) const;

    /// Width of one step in Hz.
    double StepHz() const { return stepHz_; }

  private:
    double stepHz_ = 0;
    std::vector<double> levels_;
};

}  // namespace quavix::test
