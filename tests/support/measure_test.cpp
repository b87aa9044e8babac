// SPDX-License-Identifier: MIT
#include "support/measure.h"

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "support/spectrum.h"

namespace quavix::test {
namespace {

constexpr double Rate = 48000;

std::vector<float> Sine(double frequencyHz, std::size_t length, double amplitude = 1.0, double phase = 0.3) {
    std::vector<float> samples(length);
    for (std::size_t i = 0; i < length; i++)
        samples[i] = static_cast<float>(
            amplitude *
            std::sin(2.0 * std::numbers::pi * frequencyHz * static_cast<double>(i) / Rate + phase));
    return samples;
}

TEST(Measuring, TellsTheFrequencyOfASecondOfToneToAHundredthOfACent) {
    for (const double frequency : {21.0, 110.3, 440.0, 3951.07, 15000.0, 19999.5})
        EXPECT_LT(std::abs(Cents(FrequencyHz(Sine(frequency, 48000), Rate), frequency)), 0.01) << frequency;
}

TEST(Measuring, TellsTheFrequencyOfAShortTone) {
    EXPECT_LT(std::abs(Cents(FrequencyHz(Sine(441.3, 1200), Rate), 441.3)), 0.1);
    EXPECT_LT(std::abs(Cents(FrequencyHz(Sine(101.7, 2400), Rate), 101.7)), 0.1);
    EXPECT_LT(std::abs(Cents(FrequencyHz(Sine(101.7, 1100), Rate), 101.7)), 2.0);
}

TEST(Measuring, NoiseAroundZeroDoesNotRaiseTheFrequency) {
    std::vector<float> samples = Sine(50, 24000);
    for (std::size_t i = 0; i < samples.size(); i += 2)
        samples[i] += 0.004F;
    EXPECT_LT(std::abs(Cents(FrequencyHz(samples, Rate), 50)), 0.1);
}

TEST(Measuring, TellsTheFrequencyThroughNoise) {
    std::mt19937 random(5);
    std::vector<float> samples = Sine(440, 48000, 0.5);
    for (float& sample : samples)
        sample += static_cast<float>(static_cast<int>(random() % 2001) - 1000) * 1e-4F;
    EXPECT_LT(std::abs(Cents(FrequencyHz(samples, Rate), 440)), 0.02);
}

TEST(Measuring, TonesAreSeparatedByTheGivenNumberOfSilentSamples) {
    const std::vector<float> three = {0.5F, 0.0F, 0.0F, 0.0F, 0.5F};
    const std::vector<float> two = {0.5F, 0.0F, 0.0F, 0.5F};
    EXPECT_EQ(FindTones(three, Rate).size(), 2U);
    EXPECT_EQ(FindTones(two, Rate).size(), 1U);
}

TEST(Measuring, NoiseAndSilenceHaveNoFrequency) {
    EXPECT_EQ(FrequencyHz({}, Rate), 0.0);
    EXPECT_EQ(FrequencyHz(std::vector<float>(1000, 0.5F), Rate), 0.0);
    EXPECT_EQ(FrequencyHz(Sine(40, 1200), Rate), 0.0);
}

TEST(Measuring, LevelsAreInDecibelsOfASineOfOne) {
    const std::vector<float> samples = Sine(1000.4, 24000, 0.1);
    EXPECT_NEAR(LevelDb(samples, Rate, 1000.4), -20.0, 0.001);
    EXPECT_LT(LevelDb(samples, Rate, 1020.0), -109.0);
    EXPECT_EQ(LevelDb(std::vector<float>(1000), Rate, 440), -300.0);
}

TEST(Measuring, TheSpectrumSeesAWeakToneBesideAStrongOnesHarmonics) {
    std::vector<float> samples = Sine(1000, 32768);
    const std::vector<float> weak = Sine(5321, 32768, 0.001);
    const std::vector<float> harmonic = Sine(3000, 32768, 0.5);
    for (std::size_t i = 0; i < samples.size(); i++)
        samples[i] += weak[i] + harmonic[i];
    const Spectrum spectrum(samples, Rate);
    EXPECT_NEAR(spectrum.HighestDb(20, 24000), 0.0, 1.0);
    EXPECT_NEAR(spectrum.HighestDbBetweenHarmonics(20, 24000, 1000), -60.0, 1.0);
    EXPECT_LT(spectrum.HighestDbBetweenHarmonics(20, 5000, 1000), -85.0);
    EXPECT_EQ(Spectrum(std::vector<float>(1), Rate).HighestDb(0, 24000), -300.0);
}

TEST(Measuring, FindsTonesWithTheirPlacesAndPitches) {
    std::vector<float> samples(10000);
    const std::vector<float> first = Sine(440, 4800, 0.5, 0.5);
    const std::vector<float> second = Sine(880, 2400, 0.5, 0.5);
    std::copy(first.begin(), first.end(), samples.begin() + 100);
    std::copy(second.begin(), second.end(), samples.begin() + 6000);
    const std::vector<Tone> tones = FindTones(samples, Rate);
    ASSERT_EQ(tones.size(), 2U);
    EXPECT_EQ(tones[0].Start, 100);
    EXPECT_EQ(tones[0].End, 4900);
    EXPECT_LT(std::abs(Cents(tones[0].FrequencyHz, 440)), 0.1);
    EXPECT_EQ(tones[1].Start, 6000);
    EXPECT_EQ(tones[1].End, 8400);
    EXPECT_LT(std::abs(Cents(tones[1].FrequencyHz, 880)), 0.1);
    EXPECT_TRUE(FindTones(std::vector<float>(100, 0.0009F), Rate).empty());
    EXPECT_EQ(FindTones(samples, Rate, {.Level = 0.001, .GapSamples = 2000}).size(), 1U);
}

TEST(Measuring, TellsPeakRmsMeanAndTheBiggestStep) {
    const std::vector<float> samples = {0.0F, 0.5F, -0.25F, -1.0F, -0.75F};
    EXPECT_EQ(Peak(samples), 1.0);
    EXPECT_NEAR(Rms(samples), std::sqrt(1.875 / 5.0), 1e-12);
    EXPECT_NEAR(Mean(samples), -0.3, 1e-12);
    EXPECT_EQ(BiggestStep(samples).Height, 0.75);
    EXPECT_EQ(BiggestStep(samples).At, 2U);
    EXPECT_EQ(Peak({}) + Rms({}) + Mean({}) + BiggestStep({}).Height, 0.0);
}

}  // namespace
}  // namespace quavix::test
