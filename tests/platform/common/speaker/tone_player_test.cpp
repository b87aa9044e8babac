// SPDX-License-Identifier: MIT
#include "platform/common/speaker/tone_player.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

constexpr std::int32_t Rate = 48000;
constexpr std::int32_t Block = 96;  // 2 ms
constexpr std::int64_t BlockNs = 2 * NsPerMs;
constexpr std::int64_t StartNs = NsPerSecond;

/// A card that asks for block after block, right on time.
struct FakeCard {
    TonePlayer Player{Rate, Block, StartNs};
    std::int64_t NowNs = StartNs;
    std::vector<float> Heard;
    bool Playing = true;

    void RunTo(std::int64_t untilNs) {
        for (; NowNs < untilNs; NowNs += BlockNs) {
            std::vector<float> block(Block, 9.0F);
            Playing = Player.Render(block, 1, NowNs);
            Heard.insert(Heard.end(), block.begin(), block.end());
        }
    }
    static std::int64_t Ms(double ms) { return StartNs + std::llround(ms * NsPerMs); }

    /// First and one past the last sample that is not zero, in frames.
    std::pair<std::int64_t, std::int64_t> Sounding(std::size_t from = 0) const {
        const auto loud = [](float sample) { return sample != 0.0F; };
        const auto first = std::find_if(Heard.begin() + from, Heard.end(), loud);
        const auto last = std::find_if(Heard.rbegin(), Heard.rend(), loud).base();
        return {first - Heard.begin(), last - Heard.begin()};
    }
};

TEST(TonePlayer, IsSilentWithoutTones) {
    FakeCard card;
    card.RunTo(card.Ms(20));
    EXPECT_EQ(std::count(card.Heard.begin(), card.Heard.end(), 0.0F), 960);
    EXPECT_TRUE(card.Player.Idle());
}

TEST(TonePlayer, SoundsAToneForExactlyItsLengthOneBlockAfterItsStart) {
    FakeCard card;
    card.RunTo(card.Ms(10));
    ASSERT_TRUE(card.Player.Play(1000, 50, card.Ms(8.5)));
    EXPECT_FALSE(card.Player.Idle());
    card.RunTo(card.Ms(100));
    EXPECT_TRUE(card.Player.Idle());

    const std::int64_t start = 48 * 105 / 10;
    SquareWave wave(1000, Rate, 2400);
    std::vector<float> expected(2400);
    wave.Render(expected);
    for (std::size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(card.Heard[start + i], expected[i] * TonePlayer::Gain) << i;
    const auto [first, last] = card.Sounding();
    EXPECT_GE(first, start);
    EXPECT_LE(last, start + 2400);
}

TEST(TonePlayer, PlaysTonesInARowWithoutGapOrOverlap) {
    FakeCard card;
    // The second comes a little early as the card sees it; the first still has its whole length.
    ASSERT_TRUE(card.Player.Play(1000, 10, card.Ms(0)));
    ASSERT_TRUE(card.Player.Play(500, 10, card.Ms(9.9)));
    card.RunTo(card.Ms(40));
    SquareWave second(500, Rate, 480);
    std::vector<float> expected(480);
    second.Render(expected);
    for (std::size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(card.Heard[96 + 480 + i], expected[i] * TonePlayer::Gain) << i;
    EXPECT_LE(card.Sounding().second, 96 + 960);
}

TEST(TonePlayer, DoesNotFallFurtherBehindOnASlowCard) {
    FakeCard card;
    // The card's clock loses a tenth: its blocks are 2 ms of sound but come every 2.2 ms.
    std::int64_t songNs = card.Ms(0);
    for (int step = 0; step < 5000; ++step) {
        if (card.NowNs >= songNs) {
            ASSERT_TRUE(card.Player.Play(440, 100, songNs));
            songNs += 100 * NsPerMs;
        }
        std::vector<float> block(Block);
        card.Player.Render(block, 1, card.NowNs);
        card.NowNs += BlockNs * 11 / 10;
    }
    std::int64_t late = 0;
    for (; !card.Player.Idle(); late += BlockNs)
        card.RunTo(card.NowNs + BlockNs);
    EXPECT_LT(late, 150 * NsPerMs);
}

TEST(TonePlayer, DropsTonesThatTheCardDoesNotTake) {
    FakeCard card;
    int queued = 0;
    while (queued < 1000 && card.Player.Play(440, 1, card.Ms(queued)))
        ++queued;
    EXPECT_EQ(queued, 16);
}

TEST(TonePlayer, GivesEveryChannelTheSameSamples) {
    TonePlayer player(Rate, Block, StartNs);
    ASSERT_TRUE(player.Play(1000, 50, StartNs - BlockNs));
    std::vector<float> block(2 * Block);
    player.Render(block, 2, StartNs);
    SquareWave wave(1000, Rate, 2400);
    std::vector<float> expected(Block);
    wave.Render(expected);
    for (std::size_t i = 0; i < Block; ++i) {
        ASSERT_EQ(block[2 * i], expected[i] * TonePlayer::Gain);
        ASSERT_EQ(block[2 * i + 1], block[2 * i]);
    }
}

TEST(TonePlayer, RemembersWhenTheCardLastAsked) {
    FakeCard card;
    EXPECT_EQ(card.Player.LastRenderNs(), StartNs);
    card.RunTo(card.Ms(10));
    EXPECT_EQ(card.Player.LastRenderNs(), card.Ms(8));
}

TEST(TonePlayer, GivesUpACardThatSwallowsSamplesWithoutPlayingThem) {
    FakeCard card;
    card.RunTo(card.Ms(20'000));
    EXPECT_TRUE(card.Playing);
    std::vector<float> block(Block);
    int calls = 0;
    while (calls < 100'000 && card.Player.Render(block, 1, card.NowNs))
        ++calls;
    EXPECT_GT(calls * Block, 2 * Rate);
    EXPECT_LT(calls * Block, 6 * Rate);
}

}  // namespace
}  // namespace quavix
