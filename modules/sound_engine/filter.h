// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "modules/sound_engine/ramp.h"
#include "modules/sound_engine/unit.h"

namespace quavix::sound_engine {

/// A filter with two poles and two zeros:
/// y[n] = B0 x[n] + B1 x[n-1] + B2 x[n-2] - A1 y[n-1] - A2 y[n-2].
struct Biquad {
    double B0 = 1.0;
    double B1 = 0.0;
    double B2 = 0.0;
    double A1 = 0.0;
    double A2 = 0.0;

    bool operator==(const Biquad&) const = default;
};

/// A unit that filters its input. The sound fades from the old filter to the new one when settings change,
/// and to or from the input or silence when the filter is bypassed or deactivated.
class Filter : public Unit {
  public:
    using Unit::Unit;

    void Sync(const MixRate& rate, double channelFrequency) override;
    bool Process(const float* in, std::span<float> out) override;
    bool IsSource() const override { return false; }

  private:
    /// Returns the coefficients for the current parameters.
    virtual Biquad Design(double framesPerSecond) const = 0;
    /// Returns true if the current parameters leave the sound unchanged.
    virtual bool Neutral() const { return false; }

    // A filter and its last outputs. The last inputs are common to all.
    struct Running {
        Biquad Is;
        double Y1 = 0.0;
        double Y2 = 0.0;

        double Next(double x, double x1, double x2) {
            // In this order, only one multiplication and one addition depend on the previous sample.
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
    // The new filter, which fades in over `now_`.
    Running next_;
    int fadeLeft_ = 0;
    int fadeFrames_ = 1;
    bool fresh_ = true;
    Ramp wet_{0.0F};
    Ramp gain_{1.0F};
    double x1_ = 0.0;
    double x2_ = 0.0;
};

/// A low-pass with a resonance as Q.
class LowPass final : public Filter {
  public:
    LowPass();

  private:
    Biquad Design(double framesPerSecond) const override;
};

/// A peak or dip with a factor at its centre, and half the gain in dB at the ends of its band.
class Equaliser final : public Filter {
  public:
    Equaliser();

  private:
    Biquad Design(double framesPerSecond) const override;
    bool Neutral() const override;
};

}  // namespace quavix::sound_engine
