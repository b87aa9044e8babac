// SPDX-License-Identifier: MIT
#include "midi/hi_res_timer.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

/// Writes each tick down as "name@ms ".
class HiResTimerTest : public testing::Test {
  protected:
    void Tick(const std::string& sKey) {
        Heard += sKey + "@" + std::to_string(Time.Now() / SimulatedTime::CountsPerMs) + " ";
        if (OnTick)
            OnTick(sKey);
    }

    SimulatedTime Time;
    std::string Heard;
    std::function<void(const std::string&)> OnTick;
    HiResTimer Timer{Time, [this](const std::string& sKey) { Tick(sKey); }};
};

TEST_F(HiResTimerTest, EveryEntryTicksByItsName) {
    Timer.Add("a", 10, true);
    Timer.Add("b", 4, true);
    Timer.Add("silent", 1, false);
    Time.RunUntil(12);
    EXPECT_EQ(Heard, "b@4 b@8 a@10 b@12 ");
}

TEST_F(HiResTimerTest, AnIntervalOfZeroIsTheShortestThereIs) {
    Timer.Add("a", 0, true);
    Time.RunUntil(3);
    EXPECT_EQ(Heard, "a@1 a@2 a@3 ");
    EXPECT_EQ(Timer.Interval("a"), 0);
    Timer.SetInterval("a", -5);
    Time.RunUntil(5);
    EXPECT_EQ(Heard, "a@1 a@2 a@3 a@4 a@5 ");
}

TEST_F(HiResTimerTest, ANewIntervalCountsFromWhenTheLastTickWasDue) {
    Timer.Add("a", 10, true);
    Time.At(13, [this] { Timer.SetInterval("a", 5); });
    Time.At(26, [this] { Timer.SetInterval("a", 30); });
    Time.RunUntil(90);
    EXPECT_EQ(Heard, "a@10 a@15 a@20 a@25 a@55 a@85 ");
}

TEST_F(HiResTimerTest, ANewIntervalThatIsOverAlreadyTicksAtOnce) {
    Timer.Add("a", 1000, true);
    Time.At(50, [this] { Timer.SetInterval("a", 20); });
    Time.RunUntil(85);
    EXPECT_EQ(Heard, "a@50 a@60 a@80 ");
}

TEST_F(HiResTimerTest, ATickSetsTheNextIntervalWithoutDrift) {
    const int intervals[] = {15, 10, 8, 6, 5, 2};
    std::size_t at = 0;
    OnTick = [&](const std::string& sKey) { Timer.SetInterval(sKey, intervals[++at % 6]); };
    Timer.Add("a", intervals[0], true);
    Time.RunUntil(60);
    EXPECT_EQ(Heard, "a@15 a@25 a@33 a@39 a@44 a@46 ");
}

TEST_F(HiResTimerTest, SettingTheSameIntervalAgainDelaysNothing) {
    Timer.Add("a", 10, true);
    for (int ms = 1; ms < 30; ms += 3)
        Time.At(ms, [this] { Timer.SetInterval("a", 10); });
    Time.RunUntil(30);
    EXPECT_EQ(Heard, "a@10 a@20 a@30 ");
}

TEST_F(HiResTimerTest, ATickWhileTheSameEntrysTickWaitsComesOnceAfterwards) {
    Timer.Add("a", 10, true);
    OnTick = [this](const std::string&) {
        OnTick = nullptr;
        while (Time.Now() < 45 * SimulatedTime::CountsPerMs) {
            Time.WaitForInput({}, 5);
            Time.DoEvents();
        }
        Heard += "| ";
    };
    Time.RunUntil(60);
    EXPECT_EQ(Heard, "a@10 | a@45 a@50 a@60 ");
}

TEST_F(HiResTimerTest, EnabledAnewAnEntryCountsFromTheStart) {
    Timer.Add("a", 10, true);
    Time.At(15, [this] { Timer.SetEnabled("a", false); });
    Time.At(33, [this] { Timer.SetEnabled("a", true); });
    Time.RunUntil(45);
    EXPECT_EQ(Heard, "a@10 a@43 ");
    EXPECT_TRUE(Timer.Enabled("a"));
}

TEST_F(HiResTimerTest, AnEntryMayDisableItselfInItsTick) {
    OnTick = [this](const std::string& sKey) { Timer.SetEnabled(sKey, false); };
    Timer.Add("a", 10, true);
    Time.RunUntil(100);
    EXPECT_EQ(Heard, "a@10 ");
    EXPECT_FALSE(Timer.Enabled("a"));
}

TEST_F(HiResTimerTest, ADisabledEntryKeepsTheIntervalItIsGiven) {
    Timer.Add("a", 10, false);
    Timer.SetInterval("a", 3);
    Timer.SetEnabled("a", true);
    Time.RunUntil(4);
    EXPECT_EQ(Heard, "a@3 ");
}

TEST_F(HiResTimerTest, UnknownAndRepeatedNamesAreErrors) {
    Timer.Add("a", 10, false);
    EXPECT_THROW(Timer.Add("a", 5, true), RuntimeError);
    EXPECT_EQ(Timer.Interval("a"), 10);
    EXPECT_FALSE(Timer.Enabled("a"));
    EXPECT_THROW(Timer.SetInterval("b", 5), RuntimeError);
    EXPECT_THROW(Timer.SetEnabled("b", true), RuntimeError);
    EXPECT_THROW(Timer.Interval("b"), RuntimeError);
}

TEST_F(HiResTimerTest, NothingTicksAfterItsEnd) {
    {
        HiResTimer other(Time, [this](const std::string& sKey) { Tick(sKey); });
        other.Add("gone", 1, true);
    }
    Time.RunUntil(10);
    EXPECT_EQ(Heard, "");
}

}  // namespace
}  // namespace quavix
