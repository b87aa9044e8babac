// SPDX-License-Identifier: MIT
// Changes during playback: they take effect at blocks, and nothing clicks.
#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

// 2 ms.
constexpr std::int64_t RampFrames = 96;

std::int64_t FirstSound(const std::vector<float>& sound) {
    return std::find_if(sound.begin(), sound.end(), [](float s) { return s != 0.0F; }) - sound.begin();
}

std::int64_t EndOfSound(const std::vector<float>& sound) {
    return std::find_if(sound.rbegin(), sound.rend(), [](float s) { return s != 0.0F; }).base() -
           sound.begin();
}

TEST(EnginePause, BeginsAndEndsExactlyWithABlock) {
    for (const unsigned int block : {16U, 100U, 1024U}) {
        const TemporaryFolder folder;
        EngineSystem engine;
        engine.InitWav(folder.File("pause.wav"), block);
        SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_NOISE, 2000.0F), true);
        const std::int64_t start = engine.Mix(5 * block);
        engine.Pause(channel, false);
        const std::int64_t pause = engine.Mix(4800);
        engine.Pause(channel);
        engine.Mix(4800);
        const std::vector<float> sound = engine.Finish();
        EXPECT_EQ(FirstSound(sound), start) << block;
        EXPECT_GT(EndOfSound(sound), pause + RampFrames / 2) << block;
        EXPECT_LE(EndOfSound(sound), pause + RampFrames) << block;
    }
}

TEST(EnginePause, IsReportedAtOnce) {
    EngineSystem engine;
    engine.InitSilent();
    SoundChannel* channel = engine.Play(engine.Unit(SOUND_OSCILLATOR), true);
    int paused = -1;
    EXPECT_EQ(E().Channel_GetPaused(channel, &paused), SOUND_OK);
    EXPECT_EQ(paused, 1);
    EXPECT_EQ(E().Channel_SetPaused(channel, 0), SOUND_OK);
    EXPECT_EQ(E().Channel_GetPaused(channel, &paused), SOUND_OK);
    EXPECT_EQ(paused, 0);
    EXPECT_EQ(E().Channel_SetPaused(channel, -7), SOUND_OK);
    EXPECT_EQ(E().Channel_GetPaused(channel, &paused), SOUND_OK);
    EXPECT_EQ(paused, 1);
}

TEST(EnginePause, StopsTheTimeOfItsChannelOnly) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("time.wav"));
    SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_SINE, 480.0F));
    engine.Frequency(channel, 48000.0F);
    engine.Mix(4800);
    engine.Pause(channel);
    const std::int64_t end = engine.Mix(RampFrames);
    engine.Mix(4800 + 32);
    engine.Pause(channel, false);
    const std::int64_t again = engine.Mix(RampFrames);
    engine.Mix(480);
    const std::vector<float> sound = engine.Finish();
    // A hundred samples are a period. It goes on from where it was after the fade out.
    const auto phaseAt = [&](std::int64_t frame) { return sound[static_cast<std::size_t>(frame)]; };
    const std::int64_t onward = again - RampFrames - end;  // samples that it stood still
    for (std::int64_t i = 0; i < 300; ++i)
        EXPECT_NEAR(phaseAt(again + i),
                    std::sin(2.0 * std::numbers::pi * static_cast<double>(again + i - onward) / 100.0), 0.001)
            << i;
}

/// A sine of 50 Hz that is changed by `change` where it is highest.
template <class Prepare, class Change>
std::vector<float> Changed(Prepare prepare, Change change) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("change.wav"), 48);
    SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_SINE, 50.0F));
    engine.Frequency(channel, 48000.0F);
    engine.Volume(channel, 0.3F);
    auto* changed = prepare(engine, channel);
    engine.Mix(9600 + 240);
    change(engine, changed);
    engine.Mix(960);
    return engine.Finish();
}

// Half of full scale in 2 ms, and what the sine itself does.
constexpr double MostStep = 0.5 / RampFrames + 0.3 * 2.0 * std::numbers::pi * 50.0 / 48000.0 * 3.0;

SoundChannel* ItsChannel(const EngineSystem&, SoundChannel* channel) {
    return channel;
}

SoundUnit* AnEqualiser(const EngineSystem& engine, SoundChannel*) {
    SoundUnit* unit = engine.Equaliser(50.0F, 1.0F, 2.0F);
    EXPECT_EQ(E().ChannelGroup_AddDSP(engine.Master(), unit), SOUND_OK);
    return unit;
}

TEST(EngineChanges, ChangesOfPauseAndVolumeDoNotClick) {
    EXPECT_LT(BiggestStep(Changed(ItsChannel, [](EngineSystem& e, SoundChannel* c) { e.Pause(c); })).Height,
              MostStep);
    EXPECT_LT(BiggestStep(Changed(ItsChannel,
                                  [](EngineSystem& e, SoundChannel* c) {
                                      e.Pause(c);
                                      e.Mix(480);
                                      e.Pause(c, false);
                                  }))
                  .Height,
              MostStep);
    EXPECT_LT(
        BiggestStep(Changed(ItsChannel, [](EngineSystem& e, SoundChannel* c) { e.Volume(c, 0.0F); })).Height,
        MostStep);
    EXPECT_LT(BiggestStep(Changed(ItsChannel,
                                  [](EngineSystem& e, SoundChannel*) {
                                      EXPECT_EQ(E().ChannelGroup_SetVolume(e.Master(), 0.1F), SOUND_OK);
                                  }))
                  .Height,
              MostStep);
    // Stopped while it sounds, and begun again while it fades.
    EXPECT_LT(
        BiggestStep(Changed(ItsChannel,
                            [](EngineSystem&, SoundChannel* c) { EXPECT_EQ(E().Channel_Stop(c), SOUND_OK); }))
            .Height,
        MostStep);
}

TEST(EngineChanges, ChangesOfFiltersDoNotClick) {
    const auto step = [](auto change) {
        return BiggestStep(Changed(AnEqualiser, [&](EngineSystem& e, SoundUnit* u) { change(e, u); })).Height;
    };
    EXPECT_LT(step([](EngineSystem& e, SoundUnit* u) { e.Set(u, SOUND_EQUALISER_GAIN, 0.05F); }), MostStep);
    EXPECT_LT(step([](EngineSystem& e, SoundUnit* u) { e.Set(u, SOUND_EQUALISER_GAIN, 1.0F); }), MostStep);
    EXPECT_LT(step([](EngineSystem& e, SoundUnit* u) { e.Set(u, SOUND_EQUALISER_CENTRE, 5000.0F); }),
              MostStep);
    EXPECT_LT(step([](EngineSystem&, SoundUnit* u) { EXPECT_EQ(E().DSP_SetBypass(u, 1), SOUND_OK); }),
              MostStep);
    EXPECT_LT(step([](EngineSystem&, SoundUnit* u) { EXPECT_EQ(E().DSP_SetActive(u, 0), SOUND_OK); }),
              MostStep);
}

TEST(EngineChanges, AreCompleteAfterTwoMilliseconds) {
    const auto settled = [](const std::vector<float>& sound) {
        return Peak(std::span(sound).subspan(9600 + 240 + RampFrames));
    };
    EXPECT_EQ(settled(Changed(ItsChannel, [](EngineSystem& e, SoundChannel* c) { e.Pause(c); })), 0.0);
    EXPECT_EQ(settled(Changed(ItsChannel, [](EngineSystem& e, SoundChannel* c) { e.Volume(c, 0.0F); })), 0.0);
    EXPECT_NEAR(
        settled(Changed(AnEqualiser,
                        [](EngineSystem&, SoundUnit* u) { EXPECT_EQ(E().DSP_SetBypass(u, 1), SOUND_OK); })),
        0.3, 0.0001);
    EXPECT_EQ(settled(Changed(ItsChannel, [](EngineSystem&,
                                             SoundChannel* c) { EXPECT_EQ(E().Channel_Stop(c), SOUND_OK); })),
              0.0);
}

TEST(EngineChanges, BetweenTwoBlocksAreHeardFromTheNextOneOn) {
    const TemporaryFolder folder;
    EngineSystem engine;
    engine.InitWav(folder.File("next.wav"), 480);
    SoundUnit* low = engine.Oscillator(SOUND_SINE, 100.0F);
    SoundChannel* channel = engine.Play(low);
    engine.Frequency(channel, 48000.0F);
    const std::int64_t change = engine.Mix(4800);
    engine.Frequency(channel, 480000.0F);
    engine.Mix(480);
    const std::vector<float> sound = engine.Finish();
    const auto cut = static_cast<std::size_t>(change);
    EXPECT_NEAR(FrequencyHz(std::span(sound).first(cut), EngineSystem::Rate), 100.0, 0.1);
    EXPECT_NEAR(FrequencyHz(std::span(sound).subspan(cut), EngineSystem::Rate), 1000.0, 1.0);
}

}  // namespace
}  // namespace quavix::test
