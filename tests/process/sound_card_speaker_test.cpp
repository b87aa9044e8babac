// SPDX-License-Identifier: MIT
#include "platform/common/speaker/sound_card_speaker.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gmock/gmock.h>

#include "busy_machine.h"
#include "dsp/square_wave.h"
#include "platform/common/speaker/choose_speaker.h"
#include "platform/common/speaker/sound_card.h"
#include "platform/common/speaker/tone_player.h"
#include "sound_server_test.h"
#include "support/no_sound_devices.h"

namespace quavix {
namespace {

using testing::HasSubstr;
using Samples = std::vector<float>;

constexpr std::int32_t Rate = 48000;

class SoundCardSpeakerOn : public test::SoundServerTest {
  protected:
    static void WaitUntilOpen(const Speaker& speaker) {
        for (int wait = 0; wait < 6000 && speaker.Status().InUse.find("not opened") != std::string::npos;
             ++wait)
            SleepUntil(MonotonicNs() + 10 * NsPerMs);
    }
};

bool Loud(float sample) {
    return sample != 0.0F;
}

/// Frequency by the first and the last rising edge.
double Pitch(const Samples& tone) {
    std::vector<double> edges;
    for (std::size_t i = 1; i < tone.size(); ++i) {
        if (tone[i - 1] < 0 && tone[i] >= 0)
            edges.push_back(static_cast<double>(i) - tone[i] / (tone[i] - tone[i - 1]));
    }
    return static_cast<double>(edges.size() - 1) * Rate / (edges.back() - edges.front());
}

TEST_F(SoundCardSpeakerOn, AServerPlaysTheToneInTuneInItsLengthAndWithoutClicks) {
    ASSERT_TRUE(server_.Start());
    SoundCardSpeaker speaker({});
    WaitUntilOpen(speaker);
    ASSERT_THAT(speaker.Status().InUse, HasSubstr("sound card (J"));
    ASSERT_FALSE(speaker.Status().Silent);

    constexpr std::int32_t Hz = 441;
    constexpr std::int32_t LengthMs = 700;
    constexpr std::int64_t Length = Rate * LengthMs / 1000;
    Samples all;
    bool lostNothing = false;
    // A busy machine lets the server go on without the speaker; that says nothing about the speaker.
    constexpr int MostRuns = 20;
    for (int run = 0; run < MostRuns && !lostNothing; ++run) {
        JackRecorder recorder;
        ASSERT_TRUE(recorder.Listen());
        const int gaps = recorder.Gaps();
        const std::int64_t start = MonotonicNs();
        speaker.Beep(Hz, LengthMs);
        const std::int64_t took = MonotonicNs() - start;
        EXPECT_GE(took, LengthMs * NsPerMs);
        EXPECT_LT(took, LengthMs * NsPerMs + HangNs);
        // The silence afterwards is long enough for the report of an xrun during the tone.
        ASSERT_TRUE(recorder.RecordUntil([&](const Samples& recorded) {
            const auto last = std::find_if(recorded.rbegin(), recorded.rend(), Loud);
            all = recorded;
            return last != recorded.rend() && last - recorded.rbegin() > Rate / 5;
        }));
        lostNothing = recorder.Gaps() == gaps;
    }
    if (!lostNothing)
        GTEST_SKIP() << "the JACK server does not get the time that it needs";
    // The server got the wave sample by sample: nothing was added, lost or repeated.
    SquareWave wave(Hz, Rate, Length);
    Samples expected(Length);
    wave.Render(expected);
    for (float& sample : expected)
        sample *= TonePlayer::Gain;
    const auto first = std::find_if(all.begin(), all.end(), Loud);
    const auto last = std::find_if(all.rbegin(), all.rend(), Loud).base();
    const auto lead = std::find_if(expected.begin(), expected.end(), Loud) - expected.begin();
    const auto tail = std::find_if(expected.rbegin(), expected.rend(), Loud) - expected.rbegin();
    EXPECT_EQ(last - first + lead + tail, Length);
    EXPECT_LE(lead + tail, 2);
    EXPECT_TRUE(std::equal(first, last, expected.begin() + lead));

    EXPECT_NEAR(Pitch({first, last}), Hz, 0.01);
    // A click would be a jump of the tone's level; fading in and out takes tens of samples.
    constexpr float MostStep = 0.01F;
    for (std::ptrdiff_t i = 0; i < 4; ++i) {
        EXPECT_LT(std::abs(first[i]), MostStep * static_cast<float>(i + 1));
        EXPECT_LT(std::abs(*(last - 1 - i)), MostStep * static_cast<float>(i + 1));
    }
    EXPECT_LE(std::abs(*std::max_element(first, last)), TonePlayer::Gain);
}

TEST_F(SoundCardSpeakerOn, AServerThatDiesKeepsTimeSaysSoAndComesBack) {
    ASSERT_TRUE(server_.Start());
    bool kill = true;
    ToneClock clock;
    clock.WaitUntil = [&](std::int64_t deadlineNs) {
        if (std::exchange(kill, false))
            server_.Kill();
        SleepUntil(deadlineNs);
    };
    SoundCardSpeaker speaker(clock);
    WaitUntilOpen(speaker);
    ASSERT_FALSE(speaker.Status().Silent);

    std::int64_t start = MonotonicNs();
    speaker.Beep(440, 2100);
    EXPECT_GE(MonotonicNs() - start, 2100 * NsPerMs);
    EXPECT_LT(MonotonicNs() - start, 2100 * NsPerMs + HangNs);
    EXPECT_TRUE(speaker.Status().Silent);
    EXPECT_THAT(speaker.Status().Reason, HasSubstr("does not answer any more"));

    // The next tone tries again, which makes it no longer.
    start = MonotonicNs();
    speaker.Beep(440, 50);
    EXPECT_LT(MonotonicNs() - start, 50 * NsPerMs + HangNs);
    WaitUntilOpen(speaker);
    EXPECT_TRUE(speaker.Status().Silent);

    ASSERT_TRUE(server_.Start());
    for (int tone = 0; tone < 400 && speaker.Status().Silent; ++tone)
        speaker.Beep(440, 50);
    EXPECT_FALSE(speaker.Status().Silent);
    EXPECT_THAT(speaker.Status().InUse, HasSubstr("sound card (J"));
    EXPECT_EQ(speaker.Status().Reason, "");
}

TEST_F(SoundCardSpeakerOn, ReopeningACardWaitsFirst) {
    ASSERT_TRUE(server_.Start());
    SoundCard card;
    constexpr std::int32_t OpeningMs = 10'000;
    card.BeginOpening();
    card.AwaitOpening(OpeningMs);
    ASSERT_EQ(card.Now().Is, SoundCard::State::Open);
    const std::int64_t start = MonotonicNs();
    card.BeginOpening();
    card.AwaitOpening(OpeningMs);
    EXPECT_GE(MonotonicNs() - start, 500 * NsPerMs) << "others may be closing theirs";
    EXPECT_EQ(card.Now().Is, SoundCard::State::Open);
}

TEST_F(SoundCardSpeakerOn, WithoutADeviceItIsSilentAndKeepsTime) {
    test::HideSoundDevices();
    SpeakerChoice choice;
    choice.Wanted = "soundcard";
    const std::int64_t start = MonotonicNs();
    const auto speaker = ChooseSpeaker(choice);
    const std::int64_t chosen = MonotonicNs();
    EXPECT_LT(chosen - start, 50 * NsPerMs + HangNs);
    EXPECT_TRUE(speaker->Status().Silent);
    WaitUntilOpen(*speaker);
    EXPECT_TRUE(speaker->Status().Silent);
    EXPECT_THAT(speaker->Status().InUse, HasSubstr("silent"));
    EXPECT_THAT(speaker->Status().Reason, HasSubstr("there is no sound device"));
    const std::int64_t called = MonotonicNs();
    speaker->Beep(440, 40);
    EXPECT_GE(MonotonicNs() - called, 40 * NsPerMs);
    EXPECT_LT(MonotonicNs() - called, 40 * NsPerMs + HangNs);
}

}  // namespace
}  // namespace quavix
