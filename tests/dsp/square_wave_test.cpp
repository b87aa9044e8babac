// SPDX-License-Identifier: MIT
#include "dsp/square_wave.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/measure.h"
#include "support/spectrum.h"

namespace quavix {
namespace {

constexpr std::int32_t Rate = 48000;

std::vector<float> Samples(std::int32_t frequencyHz, std::int64_t length, std::int32_t rate = Rate) {
    SquareWave wave(frequencyHz, rate, length);
    std::vector<float> samples(static_cast<std::size_t>(length));
    wave.Render(samples);
    EXPECT_EQ(wave.Left(), 0);
    return samples;
}

TEST(SquareWave, IsInTuneAtEveryPitch) {
    for (const std::int32_t frequency : {21, 110, 262, 440, 1047, 3951, 12000, 16001}) {
        const double measured = test::FrequencyHz(Samples(frequency, Rate), Rate);
        EXPECT_LT(std::abs(test::Cents(measured, frequency)), 0.02) << frequency;
    }
}

TEST(SquareWave, IsInTuneAtEverySampleRate) {
    for (const std::int32_t rate : {8000, 11025, 44100, 96000, 192000}) {
        const double measured = test::FrequencyHz(Samples(439, rate, rate), rate);
        EXPECT_LT(std::abs(test::Cents(measured, 439)), 0.02) << rate;
    }
}

TEST(SquareWave, NeverDriftsHoweverLongItIs) {
    constexpr std::size_t Second = 8000;
    constexpr int Seconds = 1800;
    SquareWave wave(997, Second, std::int64_t{Second} * Seconds);
    std::vector<float> second(Second);
    std::vector<float> early;
    for (int i = 0; i < Seconds - 1; i++) {
        wave.Render(second);
        if (i == 1)
            early = second;
    }
    EXPECT_EQ(second, early);
}

TEST(SquareWave, HasTheHarmonicsOfASquare) {
    for (const std::int32_t frequency : {440, 1047, 3951}) {
        const std::vector<float> samples = Samples(frequency, Rate / 2);
        const double fundamental = test::LevelDb(samples, Rate, frequency);
        EXPECT_NEAR(fundamental, 20.0 * std::log10(SquareWave::Level * 4.0 / 3.14159265), 0.1);
        for (std::int32_t n = 3; n * frequency < 16000; n += 2)
            EXPECT_NEAR(test::LevelDb(samples, Rate, n * frequency) - fundamental, -20.0 * std::log10(n),
                        0.01)
                << frequency << " times " << n;
        EXPECT_LT(test::LevelDb(samples, Rate, 2 * frequency) - fundamental, -90.0) << frequency;
    }
}

TEST(SquareWave, HasNoAliases) {
    for (const std::int32_t frequency : {440, 1047, 3951, 7001}) {
        const std::vector<float> samples = Samples(frequency, 65536 + 2000);
        const test::Spectrum spectrum(std::span<const float>(samples).subspan(1000), Rate);
        EXPECT_LT(spectrum.HighestDbBetweenHarmonics(20, 16000, frequency), -85.0) << frequency;
    }
}

TEST(SquareWave, RisesFirstAndHasNoConstantPart) {
    const std::vector<float> samples = Samples(440, Rate);
    for (std::size_t i = 1; i < 54; i++)
        EXPECT_GT(samples[i], 0.0F) << i;
    for (std::size_t i = 55; i < 109; i++)
        EXPECT_LT(samples[i], 0.0F) << i;
    for (const std::int32_t frequency : {21, 440, 3951})
        EXPECT_LT(std::abs(test::Mean(Samples(frequency, 2 * Rate))), 1e-4) << frequency;
}

TEST(SquareWave, StaysBetweenMinusOneAndOne) {
    for (std::int32_t frequency = 21; frequency < Rate / 2; frequency += 517)
        EXPECT_LE(test::Peak(Samples(frequency, 4800)), 1.0) << frequency;
    EXPECT_LE(test::Peak(Samples(23999, 48000)), 1.0);
}

TEST(SquareWave, FadesInAndOutInsideItsLength) {
    const std::vector<float> samples = Samples(997, 4800);
    const std::vector<float> inside(samples.begin() + 72, samples.end() - 72);
    EXPECT_EQ(samples.front(), 0.0F);
    EXPECT_LT(std::abs(samples.back()), 0.001F);
    EXPECT_LT(test::Peak(std::span(samples).first(7)), 0.03);
    EXPECT_LT(test::Peak(std::span(samples).last(7)), 0.03);
    // The raised cosine passes 0.5 half way: 36 of 72 samples.
    EXPECT_NEAR(std::abs(samples[36]), SquareWave::Level / 2.0, 0.06);
    EXPECT_GT(test::Peak(std::span(inside).first(48)), SquareWave::Level);
    EXPECT_GT(test::Peak(std::span(inside).last(48)), SquareWave::Level);
    EXPECT_NEAR(test::Rms(inside), SquareWave::Level, 0.02);
}

TEST(SquareWave, ShortTonesFadeOverHalfTheirLength) {
    const std::vector<float> samples = Samples(1000, 96);
    EXPECT_LT(std::abs(samples.back()), 0.001F);
    EXPECT_NEAR(std::abs(samples[12]), SquareWave::Level * 0.146, 0.03);
    EXPECT_NEAR(std::abs(samples[83]), SquareWave::Level * 0.146, 0.03);
    for (std::int64_t length = 1; length < 40; length++) {
        const std::vector<float> tiny = Samples(440, length);
        EXPECT_NEAR(tiny.front(), 0.0, 1e-6) << length;
        EXPECT_LE(test::Peak(tiny), 1.0) << length;
    }
}

TEST(SquareWave, IsTheSameHoweverItIsDividedIntoCalls) {
    std::mt19937 random(3);
    for (const std::int32_t frequency : {21, 440, 3951, 17000}) {
        const std::vector<float> whole = Samples(frequency, 10000);
        SquareWave wave(frequency, Rate, 10000);
        std::vector<float> parts;
        while (wave.Left() > 0) {
            std::vector<float> part(std::min<std::size_t>(random() % 300, 10000 - parts.size()));
            wave.Render(part);
            parts.insert(parts.end(), part.begin(), part.end());
        }
        EXPECT_EQ(parts, whole) << frequency;
    }
}

TEST(SquareWave, GivesZerosAfterItsEnd) {
    SquareWave wave(440, Rate, 1000);
    std::vector<float> samples(1500, 0.7F);
    wave.Render(std::span(samples).first(999));
    EXPECT_GT(wave.Left(), 0);
    wave.Render(std::span(samples).subspan(999, 200));
    EXPECT_EQ(wave.Left(), 0);
    wave.Render(std::span(samples).subspan(1199));
    EXPECT_TRUE(std::all_of(samples.begin() + 1000, samples.end(), [](float x) { return x == 0.0F; }));
    EXPECT_NE(samples[900], 0.0F);
}

TEST(SquareWave, OutsideTheFrequenciesOfTheRateIsSilenceOfTheSameLength) {
    struct Case {
        std::int32_t FrequencyHz;
        std::int32_t SampleRate;
    };
    for (const Case bad :
         {Case{0, Rate}, {-440, Rate}, {24000, Rate}, {32766, Rate}, {4000, 8000}, {440, 0}}) {
        SquareWave wave(bad.FrequencyHz, bad.SampleRate, 300);
        std::vector<float> samples(299, 0.7F);
        wave.Render(samples);
        EXPECT_EQ(test::Peak(samples), 0.0) << bad.FrequencyHz;
        EXPECT_GT(wave.Left(), 0) << bad.FrequencyHz;
        wave.Render(std::span(samples).first(1));
        EXPECT_EQ(wave.Left(), 0) << bad.FrequencyHz;
    }
}

TEST(SquareWave, ALengthOfZeroIsFinishedAtOnce) {
    EXPECT_EQ(SquareWave(440, Rate, 0).Left(), 0);
    EXPECT_EQ(SquareWave(440, Rate, -5).Left(), 0);
}

TEST(SquareWave, TakesTheLargestNumbers) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    SquareWave wave(Most / 2, Most, std::numeric_limits<std::int64_t>::max());
    std::vector<float> samples(100);
    wave.Render(samples);
    EXPECT_LE(test::Peak(samples), 1.0);
    EXPECT_GT(wave.Left(), 0);
}

}  // namespace
}  // namespace quavix
