// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <span>

namespace quavix::sound_engine {

/// A factor that moves to its target in a straight line, so that no change clicks.
class Ramp {
  public:
    explicit Ramp(float start) : value_(start), target_(start) {}

    /// Moves to `target` over the next `frames` samples (1 or more); the last of them has it.
    void To(float target, int frames) {
        if (target == target_)
            return;
        target_ = target;
        left_ = frames;
        step_ = (target_ - value_) / static_cast<float>(frames);
    }

    /// Jumps to the target; for use while the signal is inaudible.
    void Finish() {
        value_ = target_;
        left_ = 0;
    }

    /// Returns true if the factor rests at exactly this value.
    bool At(float value) const { return left_ == 0 && value_ == value; }

    /// Returns the factor of the next sample.
    float Next() {
        if (left_ > 0)
            value_ = --left_ == 0 ? target_ : value_ + step_;
        return value_;
    }

    /// Multiplies the samples by the factor.
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
