// SPDX-License-Identifier: MIT
#pragma once

#include "sound_engine/filter_design.h"
#include "sound_engine/ramp.h"
#include "sound_engine/unit.h"

namespace quavix::sound_engine {

/// A unit that filters what it hears. Its coefficients, its bypass and its being active glide.
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

    void PassOn(const float* in, std::span<float> out);
    void Run(const float* in, std::span<float> out);
    void RunGliding(const float* in, std::span<float> out);
    bool Resting() const;

    Biquad now_;
    Biquad step_;
    Biquad target_;
    int gliding_ = 0;
    bool fresh_ = true;
    Ramp wet_{0.0F};
    Ramp gain_{1.0F};
    // The last two samples before and after the filter.
    double x1_ = 0.0;
    double x2_ = 0.0;
    double y1_ = 0.0;
    double y2_ = 0.0;
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
