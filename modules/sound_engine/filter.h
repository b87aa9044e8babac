// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "modules/sound_engine/ramp.h"
#include "modules/sound_engine/unit.h"

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

/// A unit that filters what it hears. When its settings change, the sound glides from the filter as it was to
/// the filter as it is; so it does when it is bypassed, and when it stops being active.
class Filter : public Unit {
  public:
    using Unit::Unit;

    void Sync(const MixRate& rate, double channelFrequency) override;
    bool Process(const float* in, std::span<float> out) override;
    bool IsSource() const override { return false; }

  private:
    /// What the parameters ask for.
    virtual Biquad Design(double framesPerSecond) const = 0;
    /// Whether the filter as set passes everything on as it is.
    virtual bool Neutral() const { return false; }

    // A filter with what it gave last; what it heard last is the same for all.
    struct Running {
        Biquad Is;
        double Y1 = 0.0;
        double Y2 = 0.0;

        double Next(double x, double x1, double x2) {
            // In this order only one multiplication and one addition wait for the sample before.
            const double y = Is.B0 * x + Is.B1 * x1 + Is.B2 * x2 - Is.A2 * Y2 - Is.A1 * Y1;
            Y2 = Y1;
            Y1 = y;
            return y;
        }
    };

    void PassOn(const float* in, std::span<float> out);
    void Run(const float* in, std::span<float> out);
    std::size_t RunFading(const float* in, std::span<float> out);
    bool Resting() const;
    void Settle();

    Biquad wanted_;
    Running now_;
    // Fades in over the one before.
    Running next_;
    int fadeLeft_ = 0;
    int fadeFrames_ = 1;
    bool fresh_ = true;
    Ramp wet_{0.0F};
    Ramp gain_{1.0F};
    double x1_ = 0.0;
    double x2_ = 0.0;
};

class LowPass final : public Filter {
  public:
    LowPass();

  private:
    Biquad Design(double framesPerSecond) const override;
};

class Equaliser final : public Filter {
  public:
    Equaliser();

  private:
    Biquad Design(double framesPerSecond) const override;
    bool Neutral() const override;
};

}  // namespace quavix::sound_engine
