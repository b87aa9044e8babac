// SPDX-License-Identifier: MIT
#include "sound_engine/noise.h"

#include <algorithm>

namespace quavix::sound_engine {

// The seed is spread over all bits; the generator would stay at 0 for ever.
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
        // Of values between two samples nobody would hear anything.
        from_ = values == 1 ? to_ : Draw();
        to_ = Draw();
    }
    return sample;
}

// G. Marsaglia, "Xorshift RNGs", the generator of 32 bits.
float Noise::Draw() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    constexpr float Half = 2147483648.0F;
    return static_cast<float>(static_cast<std::int32_t>(state_)) / Half;
}

}  // namespace quavix::sound_engine
