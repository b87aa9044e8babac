// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <span>

namespace quavix::sound_engine {

/// A factor that glides to where it is told to, in a straight line, so that no change of it clicks.
class Ramp {
  public:
    explicit Ramp(float start) : value_(start), target_(start) {}

    /// Glides to `target` over the next `frames` samples (1 or more), the last of which has it.
    void To(float target, int frames) {
        if (target == target_)
            return;
        target_ = target;
        left_ = frames;
        step_ = (target_ - value_) / static_cast<float>(frames);
    }

    /// Is at its target at once; for when nobody hears it.
    void Finish() {
        value_ = target_;
        left_ = 0;
    }

    bool Settled() const { return left_ == 0; }
    /// Stands at exactly this.
    bool At(float value) const { return left_ == 0 && value_ == value; }

    /// The factor of the next sample.
    float Next() {
        if (left_ > 0)
            value_ = --left_ == 0 ? target_ : value_ + step_;
        return value_;
    }

    /// Multiplies.
    void Apply(std::span<float> samples) {
        std::size_t i = 0;
        for (; i < samples.size() && left_ > 0; ++i)
            samples[i] *= Next();
        if (value_ == 1.0F)
            return;
        for (; i < samples.size(); ++i)
            samples[i] *= value_;
    }

  private:
    float value_;
    float target_;
    float step_ = 0.0F;
    int left_ = 0;
};

}  // namespace quavix::sound_engine
