// SPDX-License-Identifier: MIT
#include "fmod/use_fmod.h"

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

class NeverSilent : public testing::Test {
  protected:
    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    Watched<bool>& NeverSilentCheck = P.App.Outputs.SoundMods.UseFmod.NeverSilentCheck;
    Setting& Ratio = P.App.Fields.Song.NoteSilenceRatio;
};

TEST_F(NeverSilent, RaisesTheRatioToFullWhileItIsTicked) {
    Ratio.Set(70);
    NeverSilentCheck = true;
    EXPECT_TRUE(Fields.Output.DoNotShutUpFMOD);
    EXPECT_EQ(Ratio, 100);
    EXPECT_EQ(Fields.Song.NoteSilenceRatio.Text(), "100%");
    NeverSilentCheck = false;
    EXPECT_FALSE(Fields.Output.DoNotShutUpFMOD);
    EXPECT_EQ(Ratio, 70);
    EXPECT_EQ(Fields.Song.NoteSilenceRatio.Text(), "70%");
}

TEST_F(NeverSilent, ARatioThatTheUserSetWhileItWasTickedStays) {
    Ratio.Set(70);
    NeverSilentCheck = true;
    Ratio.Set(85);
    EXPECT_TRUE(Fields.Output.DoNotShutUpFMOD);
    NeverSilentCheck = false;
    EXPECT_FALSE(Fields.Output.DoNotShutUpFMOD);
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

TEST_F(NeverSilent, ARatioMovedBeforeTickingIsRestored) {
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

TEST_F(NeverSilent, ARatioLoadedWithASongStays) {
    NeverSilentCheck = true;
    P.Disk.Put("song", "Quavix by Dastrel-204 file format\nNoteSilenceRatio 40\nMUSICLISTSTART\n");
    P.App.Storage.SongReader.ActuallyLoadMusic("song");
    EXPECT_EQ(Ratio, 40);
    NeverSilentCheck = false;
    EXPECT_EQ(Ratio, 40);
}

class UseFmodTest : public testing::Test {
  protected:
    UseFmodTest() { P.StartSound(); }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
};

TEST_F(UseFmodTest, TickingTheCheckBoxRoutesTonesToItAndShowsItsOptions) {
    Fields.Mods.UseFMOD.Ticked = true;
    EXPECT_TRUE(Fields.Mods.UseFMOD.InUse);
    EXPECT_TRUE(P.App.Outputs.SoundMods.UseFmod.FMODOptionsFormVisible);
    std::string note = "A4";
    P.App.Outputs.ToneDispatcher.UniBeep(note, 100);
    EXPECT_EQ(P.Timeline.Text("speaker"), "");
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetFrequency"),
              "0.0000 fmod FMOD_Channel_SetFrequency(channel1, 5277.888)\n");
    P.Timeline.Clear();
    Fields.Mods.UseFMOD.Ticked = false;
    EXPECT_EQ(P.Timeline.Text(), "0.1000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
    EXPECT_FALSE(Fields.Mods.UseFMOD.InUse);
    EXPECT_FALSE(P.App.Outputs.SoundMods.UseFmod.FMODOptionsFormVisible);
    P.App.Outputs.ToneDispatcher.UniBeep(note, 100);
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.1000 speaker 440 Hz 100 ms\n");
}

TEST_F(UseFmodTest, WithNeverSilentTonesOfASongAreNotPausedBetween) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -", "1/8 - - -"});
    Fields.Mods.UseFMOD.Ticked = true;
    P.App.Outputs.SoundMods.UseFmod.NeverSilentCheck = true;
    P.Timeline.Clear();
    P.Time.At(600, [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    const std::string calls = P.Timeline.Text("fmod FMOD_Channel_SetPaused");
    // Two notes that follow each other, then the rest.
    EXPECT_EQ(calls.find("channel1, 1)"), calls.find("(channel1, 1)") + 1);
    EXPECT_LT(calls.rfind("channel1, 0)"), calls.find("channel1, 1)"));
}

}  // namespace
}  // namespace quavix
