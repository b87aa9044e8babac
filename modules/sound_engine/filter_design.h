// SPDX-License-Identifier: MIT
#pragma once

namespace quavix::sound_engine {

/// A filter of two poles and two zeros:
/// y[n] = B0 x[n] + B1 x[n-1] + B2 x[n-2] - A1 y[n-1] - A2 y[n-2].
struct Biquad {
    double B0 = 1.0;
    double B1 = 0.0;
    double B2 = 0.0;
    double A1 = 0.0;
    double A2 = 0.0;
};

// Both by the Audio EQ Cookbook of R. Bristow-Johnson. Frequencies are in Hz, above 0; those above 0.49 of
// `framesPerSecond` are taken as that.

/// A low-pass with Q `resonance`, above 0.
Biquad LowPassDesign(double cutoff, double resonance, double framesPerSecond);

/// A peak or dip of the factor `gain`, above 0, at `centre`, and half as high in dB at the ends of a band
/// `octaves` wide.
Biquad EqualiserDesign(double centre, double octaves, double gain, double framesPerSecond);

}  // namespace quavix::sound_engine
