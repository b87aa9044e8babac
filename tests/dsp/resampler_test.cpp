// SPDX-License-Identifier: MIT
#include "dsp/resampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "support/measure.h"
#include "support/spectrum.h"

namespace quavix {
namespace {

std::vector<float> Sine(double hertz, double rate, std::size_t frames) {
    std::vector<float> samples(frames);
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] =
            static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate));
    return samples;
}

/// In blocks of any size.
std::vector<float> Resample(const std::vector<float>& in, std::int32_t from, std::int32_t to) {
    Resampler resampler(from, to);
    std::vector<float> out;
    std::size_t size = 1;
    for (std::size_t i = 0; i < in.size(); i += size, size = size * 3 % 1009 + 1) {
        size = std::min(size, in.size() - i);
        resampler.Process(std::span(in).subspan(i, size), out);
    }
    resampler.Finish(out);
    return out;
}

TEST(Resampler, EqualRatesChangeNothing) {
    const std::vector<float> in = Sine(440, 48000, 1000);
    EXPECT_EQ(Resample(in, 48000, 48000), in);
}

TEST(Resampler, KeepsLengthPitchLevelAndTime) {
    for (const std::int32_t to : {8000, 22050, 44100, 96000, 192000}) {
        const std::vector<float> out = Resample(Sine(1000, 48000, 48000), 48000, to);
        EXPECT_EQ(out.size(), static_cast<std::size_t>(to));
        EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(out, to), 1000)), 0.01) << to;
        EXPECT_NEAR(test::LevelDb(out, to, 1000), 20 * std::log10(0.5), 0.05) << to;
        const std::vector<float> expected = Sine(1000, to, out.size());
        for (std::size_t i = out.size() / 4; i < out.size() / 2; ++i)
            ASSERT_NEAR(out[i], expected[i], 0.001) << to << " at " << i;
    }
}

TEST(Resampler, FrequenciesAboveHalfTheLowerRateAreRemoved) {
    const std::vector<float> out = Resample(Sine(13000, 48000, 48000), 48000, 22050);
    const test::Spectrum spectrum(out, 22050);
    EXPECT_LT(spectrum.HighestDb(0, 11025), -80);
}

TEST(Resampler, AnEmptyInputGivesAnEmptyOutput) {
    EXPECT_TRUE(Resample({}, 48000, 44100).empty());
    EXPECT_EQ(Resample({0.0F}, 48000, 96000).size(), 2u);
}

}  // namespace
}  // namespace quavix
