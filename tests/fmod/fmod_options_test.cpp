// SPDX-License-Identifier: MIT
#include "fmod/fmod_options.h"

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

class NeverSilent : public testing::Test {
  protected:
    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    Watched<bool>& NeverSilentCheck = P.App.Outputs.SoundMods.Options.NeverSilentCheck;
    Setting& Ratio = P.App.Fields.NoteSilenceRatio;
};

TEST_F(NeverSilent, TiesAllNotesTogetherWhileItIsTicked) {
    Ratio.Set(70);
    NeverSilentCheck = true;
    EXPECT_TRUE(Fields.DoNotShutUpFMOD);
    EXPECT_EQ(Ratio, 100);
    EXPECT_EQ(Fields.NoteSilenceRatio.Text(), "100%");
    NeverSilentCheck = false;
    EXPECT_FALSE(Fields.DoNotShutUpFMOD);
    EXPECT_EQ(Ratio, 70);
    EXPECT_EQ(Fields.NoteSilenceRatio.Text(), "70%");
}

TEST_F(NeverSilent, ARatioThatTheUserChoseMeanwhileStays) {
    Ratio.Set(70);
    NeverSilentCheck = true;
    Ratio.Set(85);
    EXPECT_TRUE(Fields.DoNotShutUpFMOD);
    NeverSilentCheck = false;
    EXPECT_FALSE(Fields.DoNotShutUpFMOD);
    EXPECT_EQ(Ratio, 85);
}

TEST_F(NeverSilent, TheNextTimeStartsFromTheUsersRatio) {
    Ratio.Set(70);
    NeverSilentCheck = true;
    Ratio.Set(85);
    NeverSilentCheck = false;
    NeverSilentCheck = true;
    EXPECT_EQ(Ratio, 100);
    NeverSilentCheck = false;
    EXPECT_EQ(Ratio, 85);
}

TEST_F(NeverSilent, ARatioMovedBeforehandIsNoneThatWasMovedMeanwhile) {
    Ratio.Set(60);
    Ratio.Set(50);
    NeverSilentCheck = true;
    NeverSilentCheck = false;
    EXPECT_EQ(Ratio, 50);
}

TEST_F(NeverSilent, AtFullRatioNothingMoves) {
    Ratio.Set(100);
    NeverSilentCheck = true;
    EXPECT_EQ(Ratio, 100);
    NeverSilentCheck = false;
    EXPECT_EQ(Ratio, 100);
}

TEST_F(NeverSilent, ASongsRatioCountsAsTheUsers) {
    NeverSilentCheck = true;
    P.Disk.Put("song", "Quavix by Dastrel-204 file format\nNoteSilenceRatio 40\nMUSICLISTSTART\n");
    P.App.Storage.SongReader.ActuallyLoadMusic("song");
    EXPECT_EQ(Ratio, 40);
    NeverSilentCheck = false;
    EXPECT_EQ(Ratio, 40);
}

}  // namespace
}  // namespace quavix
