// SPDX-License-Identifier: MIT
// The sound engine on a sound system, as a program has it.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <utility>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"
#include "platform/common/speaker/sound_card_speaker.h"
#include "sound_server_test.h"
#include "support/measure.h"
#include "support/no_sound_devices.h"

namespace quavix::test {
namespace {

using Samples = std::vector<float>;

constexpr std::int64_t Period = 128;
constexpr const char* ServerIsStarved = "the JACK server does not get the time that it needs";

class SoundEngineOn : public SoundServerTest {
  protected:
    /// Opens the output with the program's settings.
    static SoundResult Init(const EngineSystem& engine) {
        EXPECT_EQ(E().System_SetDSPBufferSize(engine.Handle(), 16, 256), SOUND_OK);
        return E().System_Init(engine.Handle(), 2, 0, nullptr);
    }

    /// Does the same on a server that runs. On a busy machine, a server may refuse a client at first.
    static SoundResult InitOnServer(const EngineSystem& engine) {
        constexpr int MostTries = 5;
        SoundResult result = Init(engine);
        for (int i = 1; i < MostTries && result == SOUND_NO_OUTPUT; ++i)
            result = Init(engine);
        return result;
    }
};

std::ptrdiff_t FirstSound(std::span<const float> sound) {
    return std::find_if(sound.begin(), sound.end(), [](float s) { return s != 0.0F; }) - sound.begin();
}

/// Records so much sound in which the server has lost nothing, from its first sample or a later one on.
/// Returns nothing if a busy machine does not let the server play that long.
Samples Record(JackRecorder& recorder, std::size_t frames) {
    constexpr std::size_t UntilXrunIsReported = 4800;
    Samples sound;
    int gaps = recorder.Gaps();
    std::size_t from = 0;
    bool isHeard = false;
    const bool isComplete = recorder.RecordUntil([&](const Samples& all) {
        isHeard = isHeard || all.back() != 0.0F;
        if (const int now = recorder.Gaps(); std::exchange(gaps, now) != now)
            from = all.size();
        const std::ptrdiff_t first =
            static_cast<std::ptrdiff_t>(from) + FirstSound(std::span(all).subspan(from));
        if (all.size() < static_cast<std::size_t>(first) + frames + UntilXrunIsReported)
            return false;
        sound.assign(all.begin() + first, all.begin() + first + static_cast<std::ptrdiff_t>(frames));
        return true;
    });
    EXPECT_TRUE(isComplete || (isHeard && recorder.Gaps() > 0));
    return sound;
}

TEST_F(SoundEngineOn, AServerSoundsInTuneAtWhateverRateItRuns) {
    for (const int rate : {48000, 44100}) {
        ASSERT_TRUE(server_.Start(rate));
        {
            EngineSystem engine;
            ASSERT_EQ(InitOnServer(engine), SOUND_OK);
            int told = 0;
            int outputs = 0;
            EXPECT_EQ(E().System_GetSoftwareFormat(engine.Handle(), &told, nullptr, &outputs, nullptr,
                                                   nullptr, nullptr),
                      SOUND_OK);
            EXPECT_EQ(told, rate);
            EXPECT_EQ(outputs, 2);
            JackRecorder recorder;
            ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
            SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_SQUARE, 8000.0F));
            engine.Frequency(channel, 5277.888F);
            engine.Volume(channel, 0.18F);
            const Samples sound = Record(recorder, 30000);
            if (sound.empty())
                GTEST_SKIP() << ServerIsStarved;
            const double measured = FrequencyHz(std::span(sound).subspan(200), rate);
            EXPECT_LT(std::abs(Cents(measured, 4000.0 * 5277.888 / 48000.0)), 0.1) << rate;
            EXPECT_NEAR(Rms(std::span(sound).subspan(200)), 0.18, 0.005);
        }
        server_.Kill();
    }
}

TEST_F(SoundEngineOn, AServerIsHeardAsLateAsTheBufferSizeSays) {
    ASSERT_TRUE(server_.Start());
    EngineSystem engine;
    ASSERT_EQ(InitOnServer(engine), SOUND_OK);
    SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_SQUARE, 8000.0F), true);
    JackRecorder recorder;
    ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
    unsigned int length = 0;
    int count = 0;
    EXPECT_EQ(E().System_GetDSPBufferSize(engine.Handle(), &length, &count), SOUND_OK);
    const std::int64_t expected = std::int64_t{length} * count;

    constexpr std::size_t Rest = 12000;
    std::size_t from = 0;
    constexpr int MostTries = 20;
    std::vector<std::int64_t> delays;
    for (int i = 0; i < MostTries && delays.size() < 5; ++i) {
        const int gaps = recorder.Gaps();
        // Counted in what the server plays, whatever time a busy machine gives it. The call comes up to a
        // period before the first sample that is not recorded yet.
        const auto before = static_cast<std::int64_t>(recorder.Size());
        engine.Pause(channel, false);
        const auto after = static_cast<std::int64_t>(recorder.Size());
        std::int64_t heard = 0;
        ASSERT_TRUE(recorder.RecordUntil([&](const Samples& all) {
            const std::ptrdiff_t first = FirstSound(std::span(all).subspan(from));
            heard = static_cast<std::int64_t>(from) + first;
            return static_cast<std::size_t>(heard) < all.size();
        }));
        heard += recorder.FramesToLoudspeaker();
        // A delay is only known if the busy machine has lost no period and no period began during the call.
        if (recorder.Gaps() == gaps && after == before)
            delays.push_back(heard - before);
        engine.Pause(channel);
        ASSERT_TRUE(recorder.RecordUntil([&](const Samples& all) {
            const auto last = std::find_if(all.rbegin(), all.rend(), [](float s) { return s != 0.0F; });
            from = all.size();
            return static_cast<std::size_t>(last - all.rbegin()) > Rest;
        }));
    }
    if (delays.empty())
        GTEST_SKIP() << ServerIsStarved;
    // The one in the middle: the server also goes on without an engine that a busy machine keeps waiting.
    std::sort(delays.begin(), delays.end());
    const std::int64_t least = delays[delays.size() / 2];
    const std::int64_t most = least + Period;
    EXPECT_GE(least, expected - Period);
    EXPECT_LE(most, expected + Period);
}

TEST_F(SoundEngineOn, AServerThatIsStoppedAndContinuedLosesOnlyTheGap) {
    ASSERT_TRUE(server_.Start());
    EngineSystem engine;
    ASSERT_EQ(InitOnServer(engine), SOUND_OK);
    SoundUnit* unit = engine.Oscillator(SOUND_SQUARE, 8000.0F);
    SoundChannel* channel = engine.Play(unit);
    engine.Volume(channel, 0.18F);
    {
        JackRecorder recorder;
        ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
        Record(recorder, 4800);
    }
    server_.Kill();
    // More calls than any queue of them would hold, among them all kinds of changes.
    for (int i = 0; i < 20000; ++i) {
        engine.Frequency(channel, static_cast<float>(4000 + i % 5000));
        engine.Pause(channel, i % 2 == 0);
    }
    engine.Set(unit, SOUND_OSCILLATOR_TYPE, SOUND_TRIANGLE);
    engine.Frequency(channel, 12000.0F);
    SoundGroup* group = engine.Group();
    EXPECT_EQ(E().ChannelGroup_SetVolume(group, 0.5F), SOUND_OK);
    EXPECT_EQ(E().Channel_SetChannelGroup(channel, group), SOUND_OK);
    EXPECT_EQ(E().System_Update(engine.Handle()), SOUND_OK);

    // Another server, at another rate.
    ASSERT_TRUE(server_.Start(44100));
    JackRecorder recorder;
    ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
    const Samples sound = Record(recorder, 30000);
    if (sound.empty())
        GTEST_SKIP() << ServerIsStarved;
    const auto settled = std::span(sound).subspan(1000);
    EXPECT_LT(std::abs(Cents(FrequencyHz(settled, 44100.0), 8000.0 * 12000.0 / 48000.0)), 0.1);
    EXPECT_NEAR(Rms(settled), 0.18 * 0.5 / std::sqrt(3.0), 0.001);
    int rate = 0;
    EXPECT_EQ(
        E().System_GetSoftwareFormat(engine.Handle(), &rate, nullptr, nullptr, nullptr, nullptr, nullptr),
        SOUND_OK);
    EXPECT_EQ(rate, 44100);
}

TEST_F(SoundEngineOn, TheEngineAndTheSpeakerOfOneProcessOutliveAServerTogether) {
    ASSERT_TRUE(server_.Start());
    EngineSystem engine;
    ASSERT_EQ(InitOnServer(engine), SOUND_OK);
    SoundCardSpeaker speaker({});
    const auto beepUntil = [&](bool silent) {
        constexpr int MostTones = 400;
        for (int tone = 0; tone < MostTones && speaker.Status().Silent != silent; ++tone)
            speaker.Beep(440, 50);
        EXPECT_EQ(speaker.Status().Silent, silent);
    };
    beepUntil(false);
    server_.Kill();
    beepUntil(true);
    ASSERT_TRUE(server_.Start());
    beepUntil(false);
    engine.Volume(engine.Play(engine.Oscillator(SOUND_SINE, 400.0F)), 0.25F);
    JackRecorder recorder;
    ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
    // Both are connected as soon as they are open; here one more time for the later one.
    Samples sound;
    ASSERT_TRUE(recorder.RecordUntil([&](const Samples& all) {
        recorder.Listen();
        sound.assign(all.end() - static_cast<std::ptrdiff_t>(std::min<std::size_t>(all.size(), 9600)),
                     all.end());
        return sound.size() == 9600 && Peak(sound) > 0.2;
    }));
}

TEST_F(SoundEngineOn, AServerPlaysTwoSystemsSideBySide) {
    ASSERT_TRUE(server_.Start());
    EngineSystem tones;
    EngineSystem voice;
    const EngineSystem third;
    ASSERT_EQ(InitOnServer(tones), SOUND_OK);
    ASSERT_EQ(InitOnServer(voice), SOUND_OK);
    const auto play = [](const EngineSystem& engine, float hz) {
        SoundChannel* channel = engine.Play(engine.Oscillator(SOUND_SINE, hz));
        engine.Frequency(channel, 48000.0F);
        engine.Volume(channel, 0.25F);
    };
    play(tones, 400.0F);
    play(voice, 1000.0F);
    JackRecorder recorder;
    ASSERT_TRUE(recorder.ListenWhenThereIsSomething());
    // Both are connected as soon as they are open; here one more time for the later one.
    recorder.Listen();
    Samples sound;
    ASSERT_TRUE(recorder.RecordUntil([&](const Samples& all) {
        sound.assign(all.end() - static_cast<std::ptrdiff_t>(std::min<std::size_t>(all.size(), 9600)),
                     all.end());
        return sound.size() == 9600 && Peak(sound) > 0.45;
    }));
}

TEST_F(SoundEngineOn, AMissingDeviceIsReportedAndAnotherTryIsPossible) {
    HideSoundDevices();
    EngineSystem engine;
    EXPECT_EQ(Init(engine), SOUND_NO_OUTPUT);
    SoundUnit* unit = nullptr;
    EXPECT_EQ(E().System_CreateDSPByType(engine.Handle(), SOUND_OSCILLATOR, &unit), SOUND_UNINITIALIZED);
    ASSERT_TRUE(server_.Start());
    EXPECT_EQ(InitOnServer(engine), SOUND_OK);
    engine.Play(engine.Unit(SOUND_OSCILLATOR));
}

}  // namespace
}  // namespace quavix::test
