// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quavix::test {

// Samples are one channel of -1..1; `sampleRate` is in Hz.

/// The frequency in Hz of the one tone that `samples` hold from end to end, whatever its waveform, provided
/// its fundamental is its strongest part; 0 where there are fewer than two periods. Right to 0.01 cent for a
/// tone of a second, to 0.1 cent from four periods on, to 2 cents for fewer.
double FrequencyHz(std::span<const float> samples, double sampleRate);

/// How far `frequencyHz` is above `expectedHz`, in cents (hundredths of a semitone).
double Cents(double frequencyHz, double expectedHz);

/// Quadratic mean.
double Rms(std::span<const float> samples);

/// The highest absolute value; 0 for no samples.
double Peak(std::span<const float> samples);

/// Arithmetic mean of the samples, in other words their DC offset.
double Mean(std::span<const float> samples);

/// The biggest difference between two neighbours, and where: a click shows here.
struct Step {
    double Height = 0;
    /// The second of the two samples.
    std::size_t At = 0;
};
Step BiggestStep(std::span<const float> samples);

/// A tone in a recording: samples Start up to, not including, End.
struct Tone {
    std::int64_t Start = 0;
    std::int64_t End = 0;
    /// Measured over the whole tone, see FrequencyHz.
    double FrequencyHz = 0;
};

/// When a tone has ended.
struct Gate {
    /// Samples nearer to 0 than this are silence.
    double Level = 0.001;
    /// So many silent samples in a row end a tone. Fewer are a wave on its way through 0. The default parts
    /// tones that follow each other at once where both fade for a millisecond or more at 44,100 Hz and above.
    std::int64_t GapSamples = 3;
};

/// The tones in `samples`, in their order. A tone that fades in is seen where it passes the gate's level,
/// about two samples late for 1.5 ms at 48,000 Hz.
std::vector<Tone> FindTones(std::span<const float> samples, double sampleRate, Gate gate = {});

}  // namespace quavix::test
