// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/spectrum.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

constexpr float ToneVolume = 0.5F;

struct Tone {
    SoundWaveform Type = SOUND_SINE;
    float OscillatorRate = 4000.0F;
    float ChannelFrequency = 44100.0F;
};

/// The sound from its first sample on, after the fade in.
std::vector<float> Sound(Tone tone, std::int64_t frames = 48000) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("tone.wav"), 16);
    SoundChannel* channel = engine.Play(engine.Oscillator(tone.Type, tone.OscillatorRate));
    engine.Frequency(channel, tone.ChannelFrequency);
    engine.Volume(channel, ToneVolume);
    constexpr std::int64_t FadeIn = 96;
    engine.Mix(FadeIn + frames);
    std::vector<float> samples = engine.Finish();
    samples.erase(samples.begin(), samples.begin() + FadeIn);
    return samples;
}

/// The channel frequency that the program sets for a tone.
float ChannelFrequency(double hz) {
    return static_cast<float>(hz * 1.088 * 11.025);
}

/// The rate that the program sets for a waveform.
float OscillatorRate(SoundWaveform type) {
    return type == SOUND_SQUARE ? 8000.0F : 4000.0F;
}

constexpr SoundWaveform Pitched[] = {SOUND_SINE, SOUND_SQUARE, SOUND_RISING_SAW, SOUND_FALLING_SAW,
                                     SOUND_TRIANGLE};

TEST(EngineOscillator, SoundsAtItsRateTimesTheChannelsFrequencyAndTheSquareAtHalf) {
    for (const SoundWaveform type : Pitched) {
        for (const double hz : {65.4, 440.0, 3951.1}) {
            const float rate = OscillatorRate(type);
            const float frequency = ChannelFrequency(hz);
            const double expected =
                static_cast<double>(rate) * frequency / 48000.0 * (type == SOUND_SQUARE ? 0.5 : 1.0);
            EXPECT_NEAR(expected, hz * 0.9996, 0.001);
            const double measured = FrequencyHz(Sound({type, rate, frequency}), EngineRate);
            EXPECT_LT(std::abs(Cents(measured, expected)), 0.1) << type << " " << hz;
        }
    }
}

TEST(EngineOscillator, StartsWithAChannelFrequencyOf44100) {
    const double measured = FrequencyHz(Sound({.Type = SOUND_SINE, .OscillatorRate = 1000.0F}), EngineRate);
    EXPECT_LT(std::abs(Cents(measured, 1000.0 * 44100.0 / 48000.0)), 0.1);
}

TEST(EngineOscillator, IsFullScale) {
    const auto fundamental = [](SoundWaveform type) {
        const float rate = OscillatorRate(type);
        const double hz = static_cast<double>(rate) * 5280.0 / 48000.0 * (type == SOUND_SQUARE ? 0.5 : 1.0);
        return LevelDb(Sound({type, rate, 5280.0F}, 16384), EngineRate, hz) - 20.0 * std::log10(ToneVolume);
    };
    const auto db = [](double amplitude) { return 20.0 * std::log10(amplitude); };
    constexpr double Pi = std::numbers::pi;
    EXPECT_NEAR(fundamental(SOUND_SINE), 0.0, 0.01);
    EXPECT_NEAR(fundamental(SOUND_SQUARE), db(4.0 / Pi), 0.01);
    EXPECT_NEAR(fundamental(SOUND_RISING_SAW), db(2.0 / Pi), 0.01);
    EXPECT_NEAR(fundamental(SOUND_FALLING_SAW), db(2.0 / Pi), 0.01);
    EXPECT_NEAR(fundamental(SOUND_TRIANGLE), db(8.0 / (Pi * Pi)), 0.01);
}

TEST(EngineOscillator, HasTheHarmonicsOfItsWaveform) {
    const auto level = [](SoundWaveform type, int harmonic) {
        constexpr float Hz = 440.0F;
        const std::vector<float> sound =
            Sound({type, type == SOUND_SQUARE ? 2.0F * Hz : Hz, 48000.0F}, 16384);
        return LevelDb(sound, EngineRate, static_cast<double>(Hz) * harmonic) -
               LevelDb(sound, EngineRate, Hz);
    };
    const auto db = [](double amplitude) { return 20.0 * std::log10(amplitude); };
    for (const int harmonic : {3, 9, 31}) {
        EXPECT_NEAR(level(SOUND_SQUARE, harmonic), db(1.0 / harmonic), 0.1) << harmonic;
        EXPECT_NEAR(level(SOUND_TRIANGLE, harmonic), db(1.0 / harmonic / harmonic), 0.1) << harmonic;
    }
    for (const int harmonic : {2, 3, 10, 32}) {
        EXPECT_NEAR(level(SOUND_RISING_SAW, harmonic), db(1.0 / harmonic), 0.1) << harmonic;
        EXPECT_NEAR(level(SOUND_FALLING_SAW, harmonic), db(1.0 / harmonic), 0.1) << harmonic;
    }
    EXPECT_LT(level(SOUND_SQUARE, 2), -80.0);
    EXPECT_LT(level(SOUND_TRIANGLE, 2), -80.0);
}

TEST(EngineOscillator, RisesAsARisingSawAndFallsAsAFallingOne) {
    const auto rising = [](SoundWaveform type) {
        const std::vector<float> sound = Sound({type, 100.0F, 48000.0F}, 4800);
        std::ptrdiff_t up = 0;
        for (std::size_t i = 1; i < sound.size(); ++i)
            up += sound[i] > sound[i - 1] ? 1 : 0;
        return static_cast<double>(up) / static_cast<double>(sound.size());
    };
    EXPECT_GT(rising(SOUND_RISING_SAW), 0.9);
    EXPECT_LT(rising(SOUND_FALLING_SAW), 0.1);
}

TEST(EngineOscillator, HasNoAliases) {
    constexpr double AllowedDb = -70.0;
    for (const SoundWaveform type : Pitched) {
        for (const double hz : {1244.5, 3951.0}) {
            const float rate = OscillatorRate(type);
            const float frequency = ChannelFrequency(hz);
            const std::vector<float> sound = Sound({type, rate, frequency}, 32768);
            const double fundamental = hz * 1.088 * 11.025 * 4000.0 / 48000.0;
            EXPECT_LT(Spectrum(sound, EngineRate).HighestDbBetweenHarmonics(0.0, 16000.0, fundamental),
                      LevelDb(sound, EngineRate, fundamental) + AllowedDb)
                << type << " " << hz;
        }
    }
}

TEST(EngineOscillator, IsSilentWhereItsToneWouldLieAboveHalfTheRate) {
    for (const SoundWaveform type : Pitched) {
        EXPECT_EQ(Peak(Sound({type, 22000.0F, 1000000.0F}, 480)), 0.0) << type;
        // At 22 kHz there is still a sine.
        EXPECT_EQ(Peak(Sound({type, 22000.0F, 48000.0F}, 480)) > 0.0, true) << type;
    }
}

TEST(EngineOscillator, MakesANoiseThatALowerFrequencyMakesDarker) {
    const auto noise = [](float frequency) { return Sound({SOUND_NOISE, 4000.0F, frequency}, 65536); };
    const std::vector<float> bright = noise(44100.0F);
    const std::vector<float> dark = noise(2000.0F);
    // Uniform values joined by lines have the variance 2 / 9.
    EXPECT_NEAR(Rms(dark), ToneVolume * std::sqrt(2.0 / 9.0), 0.01);
    EXPECT_GT(Peak(bright), 0.95 * ToneVolume);
    EXPECT_LE(Peak(bright), ToneVolume);
    EXPECT_NEAR(Mean(bright), 0.0, 0.01);
    const auto highs = [](const std::vector<float>& sound) {
        double sum = 0.0;
        for (std::size_t i = 1; i < sound.size(); ++i)
            sum += std::abs(static_cast<double>(sound[i]) - static_cast<double>(sound[i - 1]));
        return sum / static_cast<double>(sound.size());
    };
    EXPECT_LT(highs(dark), 0.1 * highs(bright));
    // A second difference of 0 means a straight line. Here every 24th sample is a new value.
    std::ptrdiff_t bends = 0;
    for (std::size_t i = 2; i < dark.size(); ++i)
        bends += std::abs(dark[i] - 2.0F * dark[i - 1] + dark[i - 2]) > 0.0005F ? 1 : 0;
    EXPECT_NEAR(static_cast<double>(bends), 65536.0 / 24.0, 50.0);
}

TEST(EngineOscillator, MakesDifferentNoiseWithEveryUnitAndTheSameInEveryRun) {
    const TemporaryFolder folder;
    const auto difference = [&] {
        EngineSystem engine;
        engine.InitWav(folder.File("two.wav"));
        for (int i = 0; i < 2; ++i)
            engine.Volume(engine.Play(engine.Oscillator(SOUND_NOISE, 100.0F)), 0.25F);
        engine.Mix(4800);
        return engine.Finish();
    };
    const std::vector<float> two = difference();
    EXPECT_EQ(two, difference());
    EXPECT_NE(Sound({.Type = SOUND_NOISE}, 4704), std::vector<float>(two.begin() + 96, two.end()));
}

TEST(EngineOscillator, RunsOnThroughChangesOfFrequencyAndWaveform) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("changes.wav"));
    SoundUnit* unit = engine.Oscillator(SOUND_SINE, 100.0F);
    SoundChannel* channel = engine.Play(unit);
    engine.Mix(4800);
    double steepest = 0.0;
    for (int i = 0; i < 200; ++i) {
        const double frequency = 20000.0 + 1000.0 * (i * 37 % 101);
        steepest = std::max(steepest, frequency);
        engine.Frequency(channel, static_cast<float>(frequency));
        engine.Set(unit, SOUND_OSCILLATOR_TYPE, i % 3 == 0 ? SOUND_TRIANGLE : SOUND_SINE);
        engine.Mix(16 * (i % 7));
    }
    const std::vector<float> sound = engine.Finish();
    // The steepest sine, and a little for the waveforms that fade over each other.
    const double slope = 2.0 * std::numbers::pi * 100.0 * steepest / 48000.0 / 48000.0;
    EXPECT_LT(BiggestStep(sound).Height, 1.3 * slope);
}

}  // namespace
}  // namespace quavix::test
