// SPDX-License-Identifier: MIT
#include "sound_engine/filter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "sound_engine/sound_engine.h"

namespace quavix::sound_engine {
namespace {

constexpr std::array<Parameter, 2> LowPassParameters = {{
    {.Lowest = 1.0F, .Highest = 22000.0F, .Default = 5000.0F, .Unit = "Hz"},
    {.Lowest = 1.0F, .Highest = 10.0F, .Default = 1.0F, .Unit = ""},
}};

constexpr std::array<Parameter, 3> EqualiserParameters = {{
    {.Lowest = 20.0F, .Highest = 22000.0F, .Default = 8000.0F, .Unit = "Hz"},
    {.Lowest = 0.2F, .Highest = 5.0F, .Default = 1.0F, .Unit = "octaves"},
    {.Lowest = 0.05F, .Highest = 3.0F, .Default = 1.0F, .Unit = ""},
}};

// 200 dB below full scale. A filter that has died away to this rests, and long before that nothing is left of
// the slow arithmetic with the smallest numbers.
constexpr double Nothing = 1e-10;

constexpr std::array<float, Processor::MostFrames> Silence{};

bool operator==(const Biquad& a, const Biquad& b) {
    return a.B0 == b.B0 && a.B1 == b.B1 && a.B2 == b.B2 && a.A1 == b.A1 && a.A2 == b.A2;
}

Biquad StepTo(const Biquad& from, const Biquad& to, int frames) {
    const double part = 1.0 / frames;
    return {.B0 = (to.B0 - from.B0) * part,
            .B1 = (to.B1 - from.B1) * part,
            .B2 = (to.B2 - from.B2) * part,
            .A1 = (to.A1 - from.A1) * part,
            .A2 = (to.A2 - from.A2) * part};
}

void Add(Biquad& biquad, const Biquad& step) {
    biquad.B0 += step.B0;
    biquad.B1 += step.B1;
    biquad.B2 += step.B2;
    biquad.A1 += step.A1;
    biquad.A2 += step.A2;
}

}  // namespace

void Filter::Sync(const MixRate& rate, double) {
    gain_.To(Active() ? 1.0F : 0.0F, rate.RampFrames);
    const bool neutral = Neutral();
    wet_.To(Bypassed() || neutral ? 0.0F : 1.0F, rate.RampFrames);
    if (fresh_) {
        wet_.Finish();
        gain_.Finish();
    }
    // Towards neutral the sound glides back to what comes in, through the filter as it was.
    const Biquad wanted = neutral ? target_ : Design(rate.FramesPerSecond);
    if (wanted == target_)
        return;
    target_ = wanted;
    // Between two stable filters all on the straight line are stable.
    gliding_ = rate.RampFrames;
    step_ = StepTo(now_, target_, gliding_);
    if (fresh_ || wet_.At(0.0F)) {
        now_ = target_;
        gliding_ = 0;
    }
}

bool Filter::Process(const float* in, std::span<float> out) {
    fresh_ = false;
    const bool inactive = gain_.At(0.0F);
    if ((in == nullptr && Resting()) || inactive) {
        x1_ = x2_ = y1_ = y2_ = 0.0;
        now_ = target_;
        gliding_ = 0;
        wet_.Finish();
        gain_.Finish();
        return false;
    }
    if (in == nullptr)
        in = Silence.data();
    if (wet_.At(0.0F)) {
        PassOn(in, out);
    } else {
        if (gliding_ > 0)
            RunGliding(in, out);
        else
            Run(in, out);
        if (!wet_.At(1.0F)) {
            for (std::size_t i = 0; i < out.size(); ++i)
                out[i] = in[i] + wet_.Next() * (out[i] - in[i]);
        }
    }
    gain_.Apply(out);
    return true;
}

bool Filter::Resting() const {
    return std::max({std::abs(x1_), std::abs(x2_), std::abs(y1_), std::abs(y2_)}) < Nothing;
}

void Filter::PassOn(const float* in, std::span<float> out) {
    std::copy_n(in, out.size(), out.begin());
    if (out.size() > 1)
        x2_ = y2_ = in[out.size() - 2];
    else
        x2_ = y2_ = x1_;
    x1_ = y1_ = in[out.size() - 1];
    gliding_ = 0;
    now_ = target_;
}

void Filter::Run(const float* in, std::span<float> out) {
    const Biquad f = now_;
    double x1 = x1_;
    double x2 = x2_;
    double y1 = y1_;
    double y2 = y2_;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double x = in[i];
        // In this order only one multiplication and one addition wait for the sample before.
        const double y = f.B0 * x + f.B1 * x1 + f.B2 * x2 - f.A2 * y2 - f.A1 * y1;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        out[i] = static_cast<float>(y);
    }
    x1_ = x1;
    x2_ = x2;
    y1_ = y1;
    y2_ = y2;
}

void Filter::RunGliding(const float* in, std::span<float> out) {
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (gliding_ > 0) {
            Add(now_, step_);
            if (--gliding_ == 0)
                now_ = target_;
        }
        const double x = in[i];
        const double y = now_.B0 * x + now_.B1 * x1_ + now_.B2 * x2_ - now_.A2 * y2_ - now_.A1 * y1_;
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        out[i] = static_cast<float>(y);
    }
}

LowPass::LowPass() : Filter(LowPassParameters) {}

Biquad LowPass::Design(double framesPerSecond) const {
    return LowPassDesign(Get(SOUND_LOW_PASS_CUTOFF), Get(SOUND_LOW_PASS_RESONANCE), framesPerSecond);
}

Equaliser::Equaliser() : Filter(EqualiserParameters) {}

Biquad Equaliser::Design(double framesPerSecond) const {
    return EqualiserDesign(Get(SOUND_EQUALISER_CENTRE), Get(SOUND_EQUALISER_BANDWIDTH),
                           Get(SOUND_EQUALISER_GAIN), framesPerSecond);
}

bool Equaliser::Neutral() const {
    return Get(SOUND_EQUALISER_GAIN) == 1.0F;
}

}  // namespace quavix::sound_engine
