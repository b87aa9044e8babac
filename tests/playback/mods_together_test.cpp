// SPDX-License-Identifier: MIT
// Mods that are on at the same time, and what sounds when.
#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

class ModsTogetherTest : public testing::Test {
  protected:
    ModsTogetherTest() {
        P.SetTempo(120, 50);
        App.Outputs.PitchGlide.Fields.PitchMultipleSlider = 5000;
    }

    void PlayAllOnce() {
        App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
        App.Playing.PlaybackEngine.PlayAllButton_Click();
    }
    void Mute(bool mute) {
        Fields.Output.MuteTweebleCheck = mute;
        App.Outputs.ToneDispatcher.MuteTweebleCheck_Click();
    }

    test::SimulatedProgram P;
    Program& App = P.App;
    MainFields& Fields = P.App.Fields;
};

TEST_F(ModsTogetherTest, ASongGlidesFromLineToLine) {
    P.SetSong({"1/8 A4 - -", "1/8 A5 - -"});
    Fields.Mods.UsePorta.Ticked = true;
    App.Outputs.PitchGlide.Fields.SoundLengthSlider = 100;
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("speaker"),
              "0.0150 speaker 440 Hz 30 ms\n0.0450 speaker 440 Hz 30 ms\n0.0750 speaker 440 Hz 30 ms\n"
              "0.1050 speaker 440 Hz 30 ms\n"
              "0.2700 speaker 440 Hz 30 ms\n0.3000 speaker 660 Hz 30 ms\n0.3300 speaker 770 Hz 30 ms\n"
              "0.3600 speaker 825 Hz 30 ms\n");
}

TEST_F(ModsTogetherTest, MutedNotesDoNotMoveAGlideThatSoundsOn) {
    P.SetSong({"1/16 A5 - -"});
    Fields.Mods.UsePorta.Ticked = true;
    App.Outputs.PitchGlide.Fields.optSoundStops = false;
    App.Outputs.PitchGlide.Fields.optSoundAlways = true;
    std::string note = "A4";
    App.Outputs.ToneDispatcher.UniBeep(note, 50);
    P.Time.RunUntil(15);
    Mute(true);
    P.Timeline.Clear();
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("speaker"),
              "0.0450 speaker 440 Hz 30 ms\n0.0750 speaker 440 Hz 30 ms\n0.1050 speaker 440 Hz 30 ms\n"
              "0.1350 speaker 440 Hz 30 ms\n0.1650 speaker 440 Hz 30 ms\n0.1950 speaker 440 Hz 30 ms\n");
    EXPECT_EQ(P.Time.Now(), 225 * SimulatedTime::CountsPerMs);
}

TEST_F(ModsTogetherTest, BurstsDelayTheMusicWhichStaysOnItsTimetable) {
    P.SetSong({"Quarter A4 - -"});
    Fields.Song.BPM.Set(40);  // lines of 1.5 s, of which 0.75 sound
    P.Time.At(100, [this] { Fields.Mods.UseCircuitBent.Ticked = true; });
    P.Time.At(1600, [this] { Fields.Mods.UseCircuitBent.Ticked = false; });
    P.Time.At(5000, [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(P.Timeline.Text("speaker 440 Hz 7") + P.Timeline.Text("speaker 440 Hz 3"),
              "0.0000 speaker 440 Hz 750 ms\n3.0000 speaker 440 Hz 750 ms\n4.5000 speaker 440 Hz 750 ms\n"
              "1.8900 speaker 440 Hz 360 ms\n");
    const std::string all = P.Timeline.Text("speaker");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 4 + 5 * 15) << "bursts from 0.765 to 1.89";
}

TEST_F(ModsTogetherTest, UnderMuteBurstsRunInTheMiddleOfANote) {
    P.SetSong({"Half A4 - -"});
    Mute(true);
    P.App.Outputs.ToneCode.UseWriteCode = true;
    P.Time.At(100, [this] { Fields.Mods.UseCircuitBent.Ticked = true; });
    P.Time.At(300, [this] { Fields.Mods.UseCircuitBent.Ticked = false; });
    PlayAllOnce();
    const std::string code = P.Disk.Content("/program/tonecode.txt");
    EXPECT_EQ(std::count(code.begin(), code.end(), '\''), 1 + 13) << "the note, and those from 115 to 300 ms";
    EXPECT_EQ(P.Time.Now(), 1010 * SimulatedTime::CountsPerMs) << "the line has its length all the same";
}

TEST_F(ModsTogetherTest, TheBeatOfAGlidingSpeakerLeavesTheNoteItsPitch) {
    P.SetSong({"1/8 A4 - -"});
    Fields.Mods.UsePorta.Ticked = true;
    Fields.Mods.UseBeat.Ticked = true;
    App.Outputs.PitchGlide.Fields.SoundLengthSlider = 100;
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("speaker"),
              "0.0150 speaker 250 Hz 30 ms\n0.0450 speaker 345 Hz 30 ms\n0.0750 speaker 392 Hz 30 ms\n"
              "0.1050 speaker 416 Hz 30 ms\n");
}

TEST_F(ModsTogetherTest, TheMetronomeGoesOnUnderBursts) {
    P.Time.At(100, [this] { Fields.Mods.UseCircuitBent.Ticked = true; });
    P.Time.At(300, [this] { Fields.Mods.UseCircuitBent.Ticked = false; });
    P.Time.At(1100, [this] { App.Playing.Metronome.MetronomeButton_Click(); });
    App.Playing.Metronome.MetronomeButton_Click();
    EXPECT_EQ(P.Timeline.Text("speaker 1000 Hz 20"), "0.0000 speaker 1000 Hz 20 ms\n");
    EXPECT_EQ(P.Timeline.Text("speaker 500 Hz 20"),
              "0.5650 speaker 500 Hz 20 ms\n1.0050 speaker 500 Hz 20 ms\n")
        << "one late beat delays no other";
}

TEST_F(ModsTogetherTest, TheMetronomeAndTheBeatOnTheMotorShowNoMessage) {
    Fields.Mods.UseMotor.Ticked = true;
    P.Time.At(600, [this] { App.Playing.Metronome.MetronomeButton_Click(); });
    App.Playing.Metronome.MetronomeButton_Click();
    EXPECT_EQ(P.Timeline.Text("serial #"),
              "0.0000 serial #0P0\\r\n0.0350 serial #0P1470\\r\n"
              "0.5000 serial #0P0\\r\n0.5350 serial #0P1470\\r\n");
    P.SetSong({"Quarter C4 - -"});
    Fields.Mods.UseBeat.Ticked = true;
    P.Timeline.Clear();
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("serial #"),
              "0.6100 serial #0P0\\r\n0.6400 serial #0P1470\\r\n0.6400 serial #0P0\\r\n"
              "0.6700 serial #0P1470\\r\n0.6700 serial #0P0\\r\n0.7000 serial #0P1470\\r\n"
              "0.7000 serial #0P1350\\r\n0.8750 serial #0P1470\\r\n1.1150 serial #0p1470\\r\n");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(ModsTogetherTest, AStartAskedForInTheMiddleOfABurstComesWithTheBurstsThatGoOn) {
    P.SetSong({"Quarter A4 - -"});
    Mute(true);
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.App.Outputs.ToneCode.UseWriteCode = true;
    App.Playing.SynchroPlay.txtHour.Type("12");
    App.Playing.SynchroPlay.txtMinute.Type("0");
    App.Playing.SynchroPlay.txtSecond.Type("2");
    App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    double startMs = 0;
    Fields.State.MusicIsPlaying.Watch([&](bool playing) {
        if (playing)
            startMs = static_cast<double>(P.Time.Now()) / SimulatedTime::CountsPerMs;
    });
    P.Time.At(100, [this] { App.Playing.SynchroPlay.btnWait_Click(); });
    P.Time.RunUntil(5000);
    EXPECT_GE(startMs, 2000);
    EXPECT_LE(startMs, 2000 + 15 * 15) << "behind one burst at most";
}

}  // namespace
}  // namespace quavix
