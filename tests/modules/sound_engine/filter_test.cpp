// SPDX-License-Identifier: MIT
#include <cmath>
#include <complex>
#include <numbers>

#include <gtest/gtest.h>

#include "modules/sound_engine/cookbook.h"
#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/spectrum.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

constexpr double ToleranceDb = 0.05;
// The 16 bits of the file make weaker levels inexact.
constexpr double LowestDb = -45.0;

/// How much louder a sine comes out of a unit of the engine, in dB; the unit is made by `make`.
template <class Make>
double MeasuredDb(double hz, float volume, Make make) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("filter.wav"), 64);
    engine.PlaySine(hz, volume);
    EXPECT_EQ(E().ChannelGroup_AddDSP(engine.Master(), make(engine)), SOUND_OK);
    constexpr std::int64_t Settling = 9600;
    engine.Mix(Settling + 16384);
    std::vector<float> sound = engine.Finish();
    sound.erase(sound.begin(), sound.begin() + Settling);
    return LevelDb(sound, EngineRate, hz) - Db(volume);
}

TEST(EngineFilter, LowPassFollowsTheCookbook) {
    for (const auto& [cutoff, q] : {std::pair{1000.0F, 1.0F}, {6000.0F, 10.0F}, {200.0F, 3.0F}}) {
        for (const double hz : {100.0, 200.0, 900.0, 1000.0, 2500.0, 6000.0, 6300.0}) {
            const double expected = Db(std::abs(CookbookLowPass(hz, cutoff, q)));
            if (expected < LowestDb)
                continue;
            const double measured = MeasuredDb(hz, 0.09F, [&](const EngineSystem& engine) {
                SoundUnit* unit = engine.Unit(SOUND_LOW_PASS);
                engine.Set(unit, SOUND_LOW_PASS_CUTOFF, cutoff);
                engine.Set(unit, SOUND_LOW_PASS_RESONANCE, q);
                return unit;
            });
            EXPECT_NEAR(measured, expected, ToleranceDb) << cutoff << " " << q << " at " << hz;
        }
    }
}

TEST(EngineFilter, EqualiserFollowsTheCookbook) {
    struct Setting {
        float Centre, Octaves, Gain;
    };
    for (const Setting s : {Setting{1180.0F, 1.0F, 3.0F},
                            {3355.0F, 1.0F, 0.05F},
                            {800.0F, 0.2F, 2.0F},
                            {9000.0F, 3.0F, 1.5F}}) {
        for (const double hz : {100.0, 800.0, 834.0, 1180.0, 1670.0, 3355.0, 9000.0, 15000.0}) {
            const double expected = Db(std::abs(CookbookPeak(hz, s.Centre, s.Octaves, s.Gain)));
            const double measured = MeasuredDb(hz, 0.3F, [&](const EngineSystem& engine) {
                return engine.Equaliser(s.Centre, s.Octaves, s.Gain);
            });
            EXPECT_NEAR(measured, expected, ToleranceDb) << s.Centre << " " << s.Gain << " at " << hz;
        }
    }
}

TEST(EngineFilter, HoldsFrequenciesBelowHalfTheRate) {
    // 22000 Hz of 48000 is as far as it goes; the filter still is one there.
    const double measured = MeasuredDb(
        20000.0, 0.3F, [](const EngineSystem& engine) { return engine.Equaliser(22000.0F, 5.0F, 3.0F); });
    EXPECT_NEAR(measured, Db(std::abs(CookbookPeak(20000.0, 22000.0, 5.0, 3.0))), ToleranceDb);
}

/// A saw through whatever `change` puts behind it.
template <class Change>
std::vector<float> Saw(Change change) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("saw.wav"));
    engine.Volume(engine.Play(engine.Oscillator(SOUND_RISING_SAW, 300.0F)), 0.2F);
    change(engine);
    engine.Mix(4800);
    return engine.Finish();
}

TEST(EngineFilter, AFilterOfGainOneOrBypassedLeavesTheSamplesUnchanged) {
    const std::vector<float> plain = Saw([](const EngineSystem&) {});
    ASSERT_GT(Peak(plain), 0.1);
    EXPECT_EQ(plain, Saw([](const EngineSystem& engine) {
                  E().ChannelGroup_AddDSP(engine.Master(), engine.Equaliser(500.0F, 1.0F, 1.0F));
              }));
    const auto lowPass = [](bool bypass) {
        return Saw([=](const EngineSystem& engine) {
            SoundUnit* unit = engine.Unit(SOUND_LOW_PASS);
            engine.Set(unit, SOUND_LOW_PASS_CUTOFF, 100.0F);
            EXPECT_EQ(E().DSP_SetBypass(unit, bypass ? 1 : 0), SOUND_OK);
            EXPECT_EQ(E().ChannelGroup_AddDSP(engine.Master(), unit), SOUND_OK);
        });
    };
    EXPECT_EQ(plain, lowPass(true));
    EXPECT_LT(Rms(lowPass(false)), 0.3 * Rms(plain));
}

TEST(EngineFilter, InactiveGivesSilence) {
    EXPECT_EQ(Peak(Saw([](const EngineSystem& engine) {
                  SoundUnit* unit = engine.Unit(SOUND_LOW_PASS);
                  EXPECT_EQ(E().DSP_SetActive(unit, 0), SOUND_OK);
                  EXPECT_EQ(E().ChannelGroup_AddDSP(engine.Master(), unit), SOUND_OK);
              })),
              0.0);
}

}  // namespace
}  // namespace quavix::test
