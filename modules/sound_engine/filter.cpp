// SPDX-License-Identifier: MIT
#include "modules/sound_engine/filter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "modules/sound_engine/sound_engine.h"

namespace quavix::sound_engine {
namespace {

// Closer to half the rate, poles and zeros of the formulas nearly coincide.
constexpr double HighestPart = 0.49;

double Angle(double frequency, double framesPerSecond) {
    return 2.0 * std::numbers::pi * std::min(frequency / framesPerSecond, HighestPart);
}

constexpr std::array<Parameter, 2> LowPassParameters = {{
    {.Lowest = 1.0F, .Highest = 22000.0F, .Default = 5000.0F, .Unit = "Hz"},
    {.Lowest = 1.0F, .Highest = 10.0F, .Default = 1.0F, .Unit = ""},
}};

constexpr std::array<Parameter, 3> EqualiserParameters = {{
    {.Lowest = 20.0F, .Highest = 22000.0F, .Default = 8000.0F, .Unit = "Hz"},
    {.Lowest = 0.2F, .Highest = 5.0F, .Default = 1.0F, .Unit = "octaves"},
    {.Lowest = 0.05F, .Highest = 3.0F, .Default = 1.0F, .Unit = ""},
}};

// 200 dB below full scale. A filter that has decayed to this level rests, well before slow denormal
// arithmetic.
constexpr double Nothing = 1e-10;

constexpr std::array<float, Processor::MostFrames> Silence{};

}  // namespace

void Filter::Sync(const MixRate& rate, double) {
    gain_.To(Active() ? 1.0F : 0.0F, rate.RampFrames);
    const bool neutral = Neutral();
    wet_.To(Bypassed() || neutral ? 0.0F : 1.0F, rate.RampFrames);
    fadeFrames_ = rate.RampFrames;
    // When the filter becomes neutral, the old filter stays and the sound fades to the input.
    if (!neutral)
        wanted_ = Design(rate.FramesPerSecond);
    if (fresh_)
        Settle();
}

// Applies the settings at once: no fade is needed while nothing is audible.
void Filter::Settle() {
    now_.Is = wanted_;
    fadeLeft_ = 0;
    wet_.Finish();
    gain_.Finish();
}

bool Filter::Process(const float* in, std::span<float> out) {
    fresh_ = false;
    const bool inactive = gain_.At(0.0F);
    if ((in == nullptr && Resting()) || inactive) {
        x1_ = x2_ = now_.Y1 = now_.Y2 = 0.0;
        Settle();
        return false;
    }
    if (in == nullptr)
        in = Silence.data();
    if (wet_.At(0.0F)) {
        PassOn(in, out);
    } else {
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
    return fadeLeft_ == 0 &&
           std::max({std::abs(x1_), std::abs(x2_), std::abs(now_.Y1), std::abs(now_.Y2)}) < Nothing;
}

void Filter::PassOn(const float* in, std::span<float> out) {
    std::copy_n(in, out.size(), out.begin());
    x2_ = out.size() > 1 ? in[out.size() - 2] : x1_;
    x1_ = in[out.size() - 1];
    now_ = {.Is = wanted_, .Y1 = x1_, .Y2 = x2_};
    fadeLeft_ = 0;
}

void Filter::Run(const float* in, std::span<float> out) {
    // A change during a fade waits for its end, because it would cause a jump.
    if (fadeLeft_ == 0 && now_.Is != wanted_) {
        next_ = {.Is = wanted_, .Y1 = now_.Y1, .Y2 = now_.Y2};
        fadeLeft_ = fadeFrames_;
    }
    const std::size_t faded = fadeLeft_ > 0 ? RunFading(in, out) : 0;
    // Local copies tell the compiler that nothing else changes them.
    Running running = now_;
    double x1 = x1_;
    double x2 = x2_;
    for (std::size_t i = faded; i < out.size(); ++i) {
        const double x = in[i];
        out[i] = static_cast<float>(running.Next(x, x1, x2));
        x2 = x1;
        x1 = x;
    }
    now_ = running;
    x1_ = x1;
    x2_ = x2;
}

// Runs until the end of the fade or of the samples. Returns the number of samples done.
std::size_t Filter::RunFading(const float* in, std::span<float> out) {
    const double step = 1.0 / fadeFrames_;
    std::size_t i = 0;
    for (; i < out.size() && fadeLeft_ > 0; ++i) {
        const double x = in[i];
        const double before = now_.Next(x, x1_, x2_);
        const double after = next_.Next(x, x1_, x2_);
        --fadeLeft_;
        out[i] = static_cast<float>(after + (before - after) * (fadeLeft_ * step));
        x2_ = x1_;
        x1_ = x;
    }
    if (fadeLeft_ == 0)
        now_ = next_;
    return i;
}

// Source of both designs: R. Bristow-Johnson, Audio EQ Cookbook.

LowPass::LowPass() : Filter(LowPassParameters) {}

Biquad LowPass::Design(double framesPerSecond) const {
    const double angle = Angle(Get(SOUND_LOW_PASS_CUTOFF), framesPerSecond);
    const double cosine = std::cos(angle);
    const double alpha = std::sin(angle) / (2.0 * Get(SOUND_LOW_PASS_RESONANCE));
    const double a0 = 1.0 + alpha;
    return {.B0 = (1.0 - cosine) / 2.0 / a0,
            .B1 = (1.0 - cosine) / a0,
            .B2 = (1.0 - cosine) / 2.0 / a0,
            .A1 = -2.0 * cosine / a0,
            .A2 = (1.0 - alpha) / a0};
}

Equaliser::Equaliser() : Filter(EqualiserParameters) {}

Biquad Equaliser::Design(double framesPerSecond) const {
    const double angle = Angle(Get(SOUND_EQUALISER_CENTRE), framesPerSecond);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double octaves = Get(SOUND_EQUALISER_BANDWIDTH);
    const double alpha = sine * std::sinh(std::numbers::ln2 / 2.0 * octaves * angle / sine);
    const double a = std::sqrt(static_cast<double>(Get(SOUND_EQUALISER_GAIN)));
    const double a0 = 1.0 + alpha / a;
    return {.B0 = (1.0 + alpha * a) / a0,
            .B1 = -2.0 * cosine / a0,
            .B2 = (1.0 - alpha * a) / a0,
            .A1 = -2.0 * cosine / a0,
            .A2 = (1.0 - alpha / a) / a0};
}

bool Equaliser::Neutral() const {
    return Get(SOUND_EQUALISER_GAIN) == 1.0F;
}

}  // namespace quavix::sound_engine
