// SPDX-License-Identifier: MIT
#include "modules/sound_engine/oscillator.h"

#include <algorithm>
#include <cmath>

#include "modules/sound_engine/sound_engine.h"

namespace quavix::sound_engine {

// Spreads the seed over all bits. The state must not be 0, which the generator would never leave.
Noise::Noise(std::uint32_t seed) : state_((seed + 1) * 2654435769U | 1U), from_(Draw()), to_(Draw()) {}

void Noise::SetStep(double valuesPerSample) {
    constexpr double Most = 1024.0;
    step_ = static_cast<std::uint64_t>(std::clamp(valuesPerSample, 0.0, Most) * static_cast<double>(One));
}

float Noise::Next() {
    const float sample =
        from_ + (to_ - from_) * (static_cast<float>(static_cast<std::uint32_t>(place_) >> 8) /
                                 static_cast<float>(1 << 24));
    place_ += step_;
    const std::uint64_t values = place_ / One;
    place_ %= One;
    if (values > 0) {
        // Values that fall between two samples are inaudible.
        from_ = values == 1 ? to_ : Draw();
        to_ = Draw();
    }
    return sample;
}

// The 32-bit generator of G. Marsaglia, "Xorshift RNGs".
float Noise::Draw() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    constexpr float Half = 2147483648.0F;
    return static_cast<float>(static_cast<std::int32_t>(state_)) / Half;
}

namespace {

constexpr std::array<Parameter, 2> OscillatorParameters = {{
    {.Lowest = 0.0F, .Highest = 5.0F, .Default = 0.0F, .Unit = "", .Whole = true},
    {.Lowest = 1.0F, .Highest = 22000.0F, .Default = 220.0F, .Unit = "Hz"},
}};

double RatePart(int type) {
    return type == SOUND_SQUARE ? SquareRatePart : 1.0;
}

}  // namespace

Oscillator::Oscillator(unsigned int seed) : Unit(OscillatorParameters), noise_(seed) {}

void Oscillator::Sync(const MixRate& rate, double channelFrequency) {
    wantedType_ = static_cast<int>(Get(SOUND_OSCILLATOR_TYPE));
    if (fresh_)
        voice_.Type = wantedType_;
    fadeFrames_ = rate.RampFrames;
    periodsPerFrame_ = static_cast<double>(Get(SOUND_OSCILLATOR_RATE)) * channelFrequency /
                       ReferenceFrequency / rate.FramesPerSecond;
    noise_.SetStep(channelFrequency / rate.FramesPerSecond);
    SetStep(voice_);
    SetStep(before_);
    const bool tooHigh = wantedType_ != SOUND_NOISE && periodsPerFrame_ * RatePart(wantedType_) >= 0.5;
    gain_.To(Active() && !Bypassed() && !tooHigh ? 1.0F : 0.0F, rate.RampFrames);
    if (fresh_)
        gain_.Finish();
}

void Oscillator::SetStep(Voice& voice) const {
    constexpr double Period = 18446744073709551616.0;
    constexpr Phase HalfPeriod = Phase{1} << 63;
    const double part = periodsPerFrame_ * RatePart(voice.Type);
    voice.Step = part >= 0.5 ? HalfPeriod : static_cast<Phase>(std::llround(part * Period / 2.0)) * 2;
}

// Prepares the samples as if the wave had always sounded and were now at its beginning.
void Oscillator::WarmUp() {
    constexpr std::size_t Past = Waves::Tail - Waves::Delay;
    voice_.At -= voice_.Step * Past;
    std::array<float, 2 * Waves::Tail> samples{};
    AddVoice(voice_, samples.data(), Waves::Tail, {});
    std::copy_n(samples.begin() + Waves::Tail, begun_.size(), begun_.begin());
}

bool Oscillator::Process(const float* in, std::span<float> out) {
    if (fresh_)
        WarmUp();
    fresh_ = false;
    const bool silent = gain_.At(0.0F);
    if (!silent) {
        const std::size_t frames = out.size();
        std::array<float, MostFrames + Waves::Tail> samples;
        std::copy(begun_.begin(), begun_.end(), samples.begin());
        std::fill_n(samples.begin() + Waves::Tail, frames, 0.0F);

        if (fadeLeft_ == 0 && voice_.Type != wantedType_) {
            before_ = voice_;
            voice_.Type = wantedType_;
            SetStep(voice_);
            fadeLeft_ = fadeFrames_;
        }
        // If the fade ends in the middle, the rest is a part of its own.
        for (std::size_t done = 0; done < frames;) {
            std::size_t part = frames - done;
            if (fadeLeft_ > 0) {
                part = std::min(part, static_cast<std::size_t>(fadeLeft_));
                const float step = 1.0F / static_cast<float>(fadeFrames_);
                const float left = static_cast<float>(fadeLeft_) * step;
                AddVoice(before_, samples.data() + done, part, {.Start = left, .Step = -step});
                AddVoice(voice_, samples.data() + done, part, {.Start = 1.0F - left, .Step = step});
                fadeLeft_ -= static_cast<int>(part);
            } else {
                AddVoice(voice_, samples.data() + done, part, {});
            }
            done += part;
        }
        std::copy_n(samples.begin(), frames, out.begin());
        std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(frames), begun_.size(), begun_.begin());
        gain_.Apply(out);
    }
    if (in == nullptr)
        return !silent;
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = silent ? in[i] : out[i] + in[i];
    return true;
}

void Oscillator::AddVoice(Voice& voice, float* out, std::size_t frames, Weight weight) {
    const Weight down = {.Start = -weight.Start, .Step = -weight.Step};
    switch (voice.Type) {
        case SOUND_SINE:
            Waves::AddSine(out, frames, voice.At, voice.Step, weight);
            break;
        case SOUND_SQUARE:
            waves_.AddSquare(out, frames, voice.At, voice.Step, weight);
            break;
        case SOUND_RISING_SAW:
            waves_.AddRisingSaw(out, frames, voice.At, voice.Step, weight);
            break;
        case SOUND_FALLING_SAW:
            waves_.AddRisingSaw(out, frames, voice.At, voice.Step, down);
            break;
        case SOUND_TRIANGLE:
            waves_.AddTriangle(out, frames, voice.At, voice.Step, weight);
            break;
        default:
            for (std::size_t i = 0; i < frames; ++i)
                out[Waves::Delay + i] += noise_.Next() * (weight.Start + weight.Step * static_cast<float>(i));
            break;
    }
    voice.At += voice.Step * frames;
}

}  // namespace quavix::sound_engine
