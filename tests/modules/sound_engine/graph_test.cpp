// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "modules/sound_engine/cookbook.h"
#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/spectrum.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

constexpr float Volume = 0.02F;

/// Records a sine of `hz` that plays in the group of `place`.
std::vector<float> Recorded(double hz, const std::function<SoundGroup*(EngineSystem&)>& place,
                            std::int64_t frames = 9600 + 16384) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("graph.wav"), 64);
    SoundChannel* channel = engine.PlaySine(hz, Volume);
    EXPECT_EQ(E().Channel_SetChannelGroup(channel, place(engine)), SOUND_OK);
    engine.Mix(frames);
    return engine.Finish();
}

double LevelBehind(double hz, const std::function<SoundGroup*(EngineSystem&)>& place) {
    std::vector<float> sound = Recorded(hz, place);
    sound.erase(sound.begin(), sound.begin() + 9600);
    return LevelDb(sound, EngineRate, hz) - Db(Volume);
}

constexpr std::array<float, 4> Formants = {814.0F, 1934.0F, 2623.0F, 3829.0F};
constexpr std::array<float, 4> Gains = {3.0F, 2.5F, 2.0F, 0.5F};
constexpr float Cutoff = 6000.0F;
constexpr float Resonance = 10.0F;

struct Voice {
    std::array<SoundUnit*, 4> Peaks{};
    SoundUnit* LowPass = nullptr;
    SoundGroup* Group = nullptr;
};

Voice MakeVoice(const EngineSystem& engine) {
    Voice voice;
    for (std::size_t i = 0; i < Formants.size(); ++i)
        voice.Peaks[i] = engine.Equaliser(Formants[i], 1.0F, Gains[i]);
    voice.LowPass = engine.Unit(SOUND_LOW_PASS);
    engine.Set(voice.LowPass, SOUND_LOW_PASS_CUTOFF, Cutoff);
    engine.Set(voice.LowPass, SOUND_LOW_PASS_RESONANCE, Resonance);
    voice.Group = engine.Group();
    return voice;
}

/// In the order in which the program puts the voice together.
Voice ConnectVoice(const EngineSystem& engine) {
    const Voice voice = MakeVoice(engine);
    for (SoundUnit* peak : voice.Peaks)
        EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, peak), SOUND_OK);
    for (SoundUnit* peak : voice.Peaks)
        EXPECT_EQ(E().DSP_AddInput(peak, voice.LowPass), SOUND_OK);
    EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, voice.LowPass), SOUND_OK);
    return voice;
}

std::complex<double> PeaksSideBySide(double hz) {
    std::complex<double> sum = 0.0;
    for (std::size_t i = 0; i < Formants.size(); ++i)
        sum += CookbookPeak(hz, Formants[i], 1.0, Gains[i]);
    return sum;
}

TEST(EngineGraph, UnitsWithACommonInputRunAfterItSideBySide) {
    for (const double hz : {300.0, 814.0, 1300.0, 2623.0, 6000.0, 9000.0}) {
        const double expected = Db(std::abs(PeaksSideBySide(hz) * CookbookLowPass(hz, Cutoff, Resonance)));
        EXPECT_NEAR(LevelBehind(hz, [](EngineSystem& engine) { return ConnectVoice(engine).Group; }),
                    expected, 0.05)
            << hz;
    }
}

TEST(EngineGraph, ABypassedInputLeavesWhatFollowsSideBySide) {
    for (const double hz : {814.0, 6000.0}) {
        EXPECT_NEAR(LevelBehind(hz,
                                [](EngineSystem& engine) {
                                    const Voice voice = ConnectVoice(engine);
                                    EXPECT_EQ(E().DSP_SetBypass(voice.LowPass, 1), SOUND_OK);
                                    return voice.Group;
                                }),
                    Db(std::abs(PeaksSideBySide(hz))), 0.05)
            << hz;
    }
}

TEST(EngineGraph, TheOrderOfConnectingMakesNoDifference) {
    const auto usual = Recorded(
        700.0, [](EngineSystem& engine) { return ConnectVoice(engine).Group; }, 4800);
    const auto other = Recorded(
        700.0,
        [](EngineSystem& engine) {
            const Voice voice = MakeVoice(engine);
            for (SoundUnit* peak : voice.Peaks)
                EXPECT_EQ(E().DSP_AddInput(peak, voice.LowPass), SOUND_OK);
            EXPECT_EQ(E().DSP_AddInput(voice.Peaks[0], voice.LowPass), SOUND_OK);  // once more
            EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, voice.LowPass), SOUND_OK);
            return voice.Group;
        },
        4800);
    ASSERT_EQ(usual.size(), other.size());
    for (std::size_t i = 0; i < usual.size(); ++i)
        ASSERT_NEAR(usual[i], other[i], 1.01F / 32767.0F) << i;
}

TEST(EngineGraph, UnitsThatAreAddedToAGroupStandInSeries) {
    for (const double hz : {814.0, 2000.0}) {
        std::complex<double> product = 1.0;
        for (std::size_t i = 0; i < Formants.size(); ++i)
            product *= CookbookPeak(hz, Formants[i], 1.0, Gains[i]);
        EXPECT_NEAR(LevelBehind(hz,
                                [](EngineSystem& engine) {
                                    const Voice voice = MakeVoice(engine);
                                    for (SoundUnit* peak : voice.Peaks)
                                        EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, peak), SOUND_OK);
                                    return voice.Group;
                                }),
                    Db(std::abs(product)), 0.05);
        // The first in the group, each an input of the next.
        EXPECT_NEAR(LevelBehind(hz,
                                [](EngineSystem& engine) {
                                    const Voice voice = MakeVoice(engine);
                                    EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, voice.Peaks[0]), SOUND_OK);
                                    for (std::size_t i = 1; i < 4; ++i)
                                        EXPECT_EQ(E().DSP_AddInput(voice.Peaks[i], voice.Peaks[i - 1]),
                                                  SOUND_OK);
                                    return voice.Group;
                                }),
                    Db(std::abs(product)), 0.05);
    }
}

TEST(EngineGraph, ARemovedUnitLeavesItsNeighboursTogether) {
    constexpr double Hz = 814.0;
    const double expected = Db(std::abs(CookbookPeak(Hz, Formants[0], 1.0, Gains[0]) *
                                        CookbookPeak(Hz, Formants[2], 1.0, Gains[2])));
    for (const bool release : {false, true}) {
        EXPECT_NEAR(LevelBehind(Hz,
                                [&](EngineSystem& engine) {
                                    const Voice voice = MakeVoice(engine);
                                    EXPECT_EQ(E().ChannelGroup_AddDSP(voice.Group, voice.Peaks[0]), SOUND_OK);
                                    EXPECT_EQ(E().DSP_AddInput(voice.Peaks[1], voice.Peaks[0]), SOUND_OK);
                                    EXPECT_EQ(E().DSP_AddInput(voice.Peaks[2], voice.Peaks[1]), SOUND_OK);
                                    const auto end = release ? E().DSP_Release : E().DSP_Remove;
                                    EXPECT_EQ(end(voice.Peaks[1]), SOUND_OK);
                                    return voice.Group;
                                }),
                    expected, 0.05);
    }
}

TEST(EngineGraph, GroupsScaleWhatIsInThemAndNestedOnesMultiply) {
    EXPECT_NEAR(LevelBehind(1000.0,
                            [](EngineSystem& engine) {
                                SoundGroup* outer = engine.Group();
                                SoundGroup* inner = engine.Group();
                                EXPECT_EQ(E().ChannelGroup_AddGroup(outer, inner), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_SetVolume(outer, 0.5F), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_SetVolume(inner, 0.25F), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_SetVolume(engine.Master(), 2.0F), SOUND_OK);
                                return inner;
                            }),
                Db(0.25), 0.01);
}

TEST(EngineGraph, AGroupsUnitsChangeNothingOutsideIt) {
    const auto plain = Recorded(
        1000.0, [](EngineSystem& engine) { return engine.Master(); }, 4800);
    const auto beside = Recorded(
        1000.0,
        [](EngineSystem& engine) {
            SoundGroup* group = engine.Group();
            EXPECT_EQ(E().ChannelGroup_AddDSP(group, engine.Equaliser(1000.0F, 5.0F, 3.0F)), SOUND_OK);
            EXPECT_EQ(E().ChannelGroup_SetVolume(group, 0.0F), SOUND_OK);
            return engine.Master();
        },
        4800);
    EXPECT_EQ(plain, beside);
}

TEST(EngineGraph, AReleasedGroupsSoundsGoOnInTheGroupThatHeldIt) {
    EXPECT_NEAR(LevelBehind(1000.0,
                            [](EngineSystem& engine) {
                                SoundGroup* outer = engine.Group();
                                SoundGroup* middle = engine.Group();
                                SoundGroup* inner = engine.Group();
                                EXPECT_EQ(E().ChannelGroup_AddGroup(outer, middle), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_AddGroup(middle, inner), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_SetVolume(outer, 0.5F), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_SetVolume(middle, 0.1F), SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_AddDSP(middle, engine.Equaliser(1e3F, 1.0F, 2.0F)),
                                          SOUND_OK);
                                EXPECT_EQ(E().ChannelGroup_Release(middle), SOUND_OK);
                                return inner;
                            }),
                Db(0.5), 0.01);
}

TEST(EngineGraph, ConnectionsThatWouldCloseALoopAreRefused) {
    EngineSystem engine;
    engine.InitSilent();
    const std::array<SoundUnit*, 3> units = {engine.Unit(SOUND_LOW_PASS), engine.Unit(SOUND_EQUALISER),
                                             engine.Unit(SOUND_OSCILLATOR)};
    EXPECT_EQ(E().DSP_AddInput(units[0], units[0]), SOUND_LOOP);
    EXPECT_EQ(E().DSP_AddInput(units[1], units[0]), SOUND_OK);
    EXPECT_EQ(E().DSP_AddInput(units[2], units[1]), SOUND_OK);
    EXPECT_EQ(E().DSP_AddInput(units[0], units[2]), SOUND_LOOP);
    EXPECT_EQ(E().DSP_AddInput(units[0], units[1]), SOUND_LOOP);

    SoundGroup* outer = engine.Group();
    SoundGroup* inner = engine.Group();
    EXPECT_EQ(E().ChannelGroup_AddGroup(outer, inner), SOUND_OK);
    EXPECT_EQ(E().ChannelGroup_AddGroup(inner, outer), SOUND_LOOP);
    EXPECT_EQ(E().ChannelGroup_AddGroup(inner, inner), SOUND_LOOP);
    EXPECT_EQ(E().ChannelGroup_AddGroup(inner, engine.Master()), SOUND_LOOP);
    engine.Mix(64);
}

TEST(EngineGraph, AnOscillatorBeforeAUnitIsHeardThroughIt) {
    // On a channel, and on none: then it sounds at its own rate.
    for (const bool played : {true, false}) {
        const TemporaryFolder folder;
        EngineSystem engine;
        engine.InitWav(folder.File("before.wav"), 64);
        SoundUnit* oscillator = engine.Oscillator(SOUND_SINE, 1000.0F);
        SoundUnit* filter = engine.Equaliser(1000.0F, 1.0F, 0.1F);
        EXPECT_EQ(E().DSP_AddInput(filter, oscillator), SOUND_OK);
        EXPECT_EQ(E().ChannelGroup_AddDSP(engine.Master(), filter), SOUND_OK);
        if (played)
            engine.Frequency(engine.Play(oscillator), 96000.0F);
        engine.Mix(9600);
        const std::vector<float> sound = engine.Finish();
        const double hz = played ? 2000.0 : 1000.0;
        EXPECT_NEAR(LevelDb(std::span(sound).subspan(1000), EngineRate, hz),
                    Db(std::abs(CookbookPeak(hz, 1000.0, 1.0, 0.1))), 0.05);
    }
}

TEST(EngineGraph, APlayedFilterGivesWhatItsInputsMake) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("played.wav"), 64);
    SoundUnit* filter = engine.Equaliser(1000.0F, 1.0F, 0.1F);
    EXPECT_EQ(E().DSP_AddInput(filter, engine.Oscillator(SOUND_SINE, 500.0F)), SOUND_OK);
    SoundChannel* channel = engine.Play(filter);
    engine.Frequency(channel, 96000.0F);
    engine.Volume(channel, 0.5F);
    engine.Mix(9600);
    engine.Pause(channel);
    const std::int64_t paused = engine.Mix(64);
    engine.Mix(960);
    const std::vector<float> sound = engine.Finish();
    EXPECT_NEAR(LevelDb(std::span(sound).subspan(1000, 8000), EngineRate, 1000.0), Db(0.05), 0.05);
    EXPECT_EQ(Peak(std::span(sound).subspan(static_cast<std::size_t>(paused) + 96)), 0.0);
}

}  // namespace
}  // namespace quavix::test
