// SPDX-License-Identifier: MIT
#include "midi/cycle_timer.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class CycleTimerTest : public testing::Test {
  protected:
    void Step() {
        steps_ += std::to_string(P.Time.Now() / SimulatedTime::CountsPerMs) + " ";
        if (OnStep)
            OnStep();
    }

    /// The times of the steps since the last call, in ms.
    std::string Steps() { return std::exchange(steps_, {}); }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    std::function<void()> OnStep;
    CycleTimer Timer{{Fields.Song, Fields.State, P.Time, P.App.Handlers, [this] { Step(); },
                      [this] { Timer.SetEnabled(false); }}};

  private:
    std::string steps_;
};

TEST_F(CycleTimerTest, IsDisabledAtFirstWithAnIntervalOfTwoMs) {
    P.Time.RunUntil(100);
    EXPECT_EQ(Steps(), "");
    EXPECT_FALSE(Timer.Enabled());
    EXPECT_EQ(Timer.Interval(), 2);
}

TEST_F(CycleTimerTest, TheFirstTickComesAfterTwoMsAndTheOthersInTheTimeOfTheTextBox) {
    Timer.SetEnabled(true);
    P.Time.RunUntil(70);
    EXPECT_EQ(Steps(), "2 22 42 62 ");
}

TEST_F(CycleTimerTest, AStepThatSetsTheTimeSetsTheIntervalThatFollows) {
    OnStep = [this] { Fields.Song.AlternateTime.Type(P.Time.Now() < 130'000 ? "5" : "8"); };
    Timer.SetEnabled(true);
    P.Time.RunUntil(40);
    EXPECT_EQ(Steps(), "2 7 12 17 25 33 ");
}

TEST_F(CycleTimerTest, AnIntervalOfZeroIsTheShortest) {
    Fields.Song.AlternateTime.Type("0");
    Timer.SetEnabled(true);
    P.Time.RunUntil(6);
    EXPECT_EQ(Steps(), "2 3 4 5 6 ");
}

TEST_F(CycleTimerTest, FractionsAreRoundedHalvesToEven) {
    Timer.SetEnabled(true);
    for (const auto& [text, interval] : {std::pair{"2.5", 2}, {"3.5", 4}, {"16.4", 16}}) {
        Fields.Song.AlternateTime.Type(text);
        EXPECT_EQ(Timer.Interval(), interval) << text;
    }
}

TEST_F(CycleTimerTest, ATextThatIsNoNumberLeavesTheIntervalAsItWas) {
    Timer.SetEnabled(true);
    P.Time.RunUntil(10);
    Fields.Song.AlternateTime.Type("");
    P.Time.RunUntil(70);
    EXPECT_EQ(Steps(), "2 22 42 62 ");
    Fields.Song.AlternateTime.Type("1e300");
    P.Time.RunUntil(90);
    EXPECT_EQ(Steps(), "82 ");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(CycleTimerTest, ACorrectedIntervalReplacesALongMistypedOneAtOnce) {
    Timer.SetEnabled(true);
    P.Time.At(5, [this] { Fields.Song.AlternateTime.Type("100000"); });
    P.Time.At(505, [this] { Fields.Song.AlternateTime.Type("100"); });
    P.Time.RunUntil(700);
    EXPECT_EQ(Steps(), "2 505 602 ");
}

TEST_F(CycleTimerTest, AStepThatWaitsIsNotEnteredAgainAndTheNextFollowsAtOnce) {
    int depth = 0;
    OnStep = [&] {
        EXPECT_EQ(++depth, 1);
        P.App.Wait.MsgWaitObj(30);
        --depth;
    };
    Timer.SetEnabled(true);
    P.Time.RunUntil(100);
    EXPECT_EQ(Steps(), "2 32 62 92 ");
}

TEST_F(CycleTimerTest, AFailingStepIsReportedOnceAndSwitchesTheTimerOff) {
    OnStep = [] { throw RuntimeError(RuntimeError::Overflow); };
    Timer.SetEnabled(true);
    P.Time.RunUntil(1000);
    EXPECT_EQ(Steps(), "2 ");
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
}

TEST_F(CycleTimerTest, EnabledAnewItCountsFromTheStart) {
    Timer.SetEnabled(true);
    P.Time.At(5, [this] { Timer.SetEnabled(false); });
    P.Time.At(53, [this] { Timer.SetEnabled(true); });
    P.Time.RunUntil(80);
    EXPECT_EQ(Steps(), "2 73 ") << "with the interval that it had";
    EXPECT_TRUE(Timer.Enabled());
}

TEST_F(CycleTimerTest, AStepMayDisableIt) {
    OnStep = [this] { Timer.SetEnabled(false); };
    Timer.SetEnabled(true);
    P.Time.RunUntil(100);
    EXPECT_EQ(Steps(), "2 ");
    EXPECT_FALSE(Timer.Enabled());
}

TEST_F(CycleTimerTest, NothingTicksAfterItsEnd) {
    {
        CycleTimer other({Fields.Song, Fields.State, P.Time, P.App.Handlers, [this] { Step(); }, [] {}});
        other.SetEnabled(true);
    }
    P.Time.RunUntil(10);
    EXPECT_EQ(Steps(), "");
}

}  // namespace
}  // namespace quavix
