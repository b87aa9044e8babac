// SPDX-License-Identifier: MIT
#include "playback/beat.h"

#include <gtest/gtest.h>

#include "support/recorded_playback.h"
#include "support/shown_dialogs.h"

namespace quavix {
namespace {

class BeatTest : public testing::Test {
  protected:
    BeatTest() { P.SetTempo(120, 50); }

    void PlayAllOnce() {
        P.App.Playing.PlaybackEngine.OnRangeEnd = [this] {
            P.App.Playing.PlaybackEngine.StopPlayButton_Click();
        };
        P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    }
    /// When a kick began, in ms.
    std::string Kicks() const {
        std::string times;
        std::istringstream lines(P.Timeline.Text("speaker 250 Hz"));
        for (std::string line; std::getline(lines, line);)
            times += std::to_string(std::lround(std::stod(line) * 1000)) + " ";
        return times;
    }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
};

TEST_F(BeatTest, IsThreeFallingTonesBeforeTheLinesNoteWhoseEndStays) {
    P.SetSong({"Quarter A4 - -"});
    Fields.Mods.UseBeat.Ticked = true;
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("speaker"),
              "0.0000 speaker 250 Hz 15 ms\n0.0150 speaker 162 Hz 15 ms\n0.0300 speaker 106 Hz 15 ms\n"
              "0.0450 speaker 440 Hz 205 ms\n");
}

TEST_F(BeatTest, SoundsOnlyWhileItIsTicked) {
    P.SetSong({"Quarter A4 - -"});
    PlayAllOnce();
    EXPECT_EQ(Kicks(), "");
}

TEST_F(BeatTest, SoundsOnlyOnLinesThatStartOnAWholeBeat) {
    // Beats 1, 2, 2.5, 3, 3.25 and 4.
    P.SetSong({"Quarter - - -", "1/8 - - -", "1/8 - - -", "1/16 - - -", "1/8 - - Dot", "Quarter - - -"});
    Fields.Mods.UseBeat.Ticked = true;
    PlayAllOnce();
    EXPECT_EQ(Kicks(), "0 510 1005 1500 ");
}

TEST_F(BeatTest, EveryOtherBeatMeansTheEvenBeatsOfEachBar) {
    P.SetSong({"Quarter - - -", "Quarter - - -", "Quarter - - -", "Quarter - - -", "Quarter - - -"});
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Playing.Beat.optBeatAll = false;
    Fields.Song.BeatsPerBar.Set(3);  // beats 1 2 3 1 2
    PlayAllOnce();
    EXPECT_EQ(Kicks(), "510 2010 ");
}

TEST_F(BeatTest, TwoDigitBeatsCount) {
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Playing.Beat.optBeatAll = false;
    for (const char* caption : {"09.00", "10.00", "10.50", "11.00", "16.00"}) {
        P.App.Editing.PositionDisplay.lblPlaySig = caption;
        P.App.Playing.Beat.LineStarts();
    }
    EXPECT_EQ(Kicks(), "0 45 ");
}

TEST_F(BeatTest, SoundsForAClickedLineToo) {
    P.SetSong({"Quarter - - -", "1/8 - - -", "1/8 A4 - -"});
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Playing.PlaybackEngine.MainList_ItemClick(3);
    EXPECT_EQ(Kicks(), "") << "it starts at beat 2.5";
    P.App.Playing.PlaybackEngine.MainList_ItemClick(2);
    EXPECT_EQ(Kicks(), "125 ");
}

TEST_F(BeatTest, UnderDoNotUpdateItDoesNotFollowTheMusic) {
    P.SetSong({"1/8 - - -", "1/8 - - -"});
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    PlayAllOnce();
    EXPECT_EQ(Kicks(), "0 255 ") << "the label stands where the music began";
}

TEST_F(BeatTest, TickingItDuringMusicUnderDoNotUpdateFindsTheBeat) {
    P.SetSong({"1/8 - - -", "1/8 - - -", "1/8 - - -", "1/8 - - -", "1/8 - - -", "1/8 - - -"});
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.Boxes.AnswerNext(BoxAnswer::Yes);
    P.Time.At(600, [this] { Fields.Mods.UseBeat.Ticked = true; });
    PlayAllOnce();
    EXPECT_EQ(Kicks(), "1005 ") << "the fifth line, at beat 3";
}

TEST_F(BeatTest, FollowsTheChosenOutput) {
    P.SetSong({"Quarter - - -"});
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Outputs.ToneCode.UseWriteCode = true;
    Fields.Output.MutePCSpeaker = true;
    PlayAllOnce();
    EXPECT_EQ(P.Timeline.Text("speaker"), "");
    EXPECT_TRUE(
        P.Disk.Content("/program/tonecode.txt")
            .starts_with("Beep         250,     15     '250 Hz [no note]\r\nMsgWaitObj            15\r\n"
                         "Beep         162,     15     '162.5 Hz [no note]\r\n"
                         "MsgWaitObj            15\r\n"
                         "Beep         106,     15     '105.625 Hz [no note]\r\n"
                         "MsgWaitObj            15\r\n"));
}

TEST_F(BeatTest, ASweepEndsAtItsEndFrequencyAndBelow16Kilohertz) {
    P.App.Playing.Beat.BeatSound(400, 100, 0.5);
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.0000 speaker 400 Hz 15 ms\n0.0150 speaker 200 Hz 15 ms\n");
    P.Timeline.Clear();
    P.App.Playing.Beat.BeatSound(16000, 100, 0.5);
    EXPECT_EQ(P.Timeline.Text(), "");
}

TEST_F(BeatTest, TickingItUnderDoNotUpdateAsksAndUnticksDoNotUpdate) {
    P.App.Log.Enable();
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    P.Boxes.AnswerNext(BoxAnswer::Yes);
    Fields.Mods.UseBeat.Ticked = true;
    test::ExpectOnlyBox(
        P.Boxes,
        {.Title = "Info about playing a beat sound",
         .Text =
             "This requires the green position indicators to be updated during playback. However, this can "
             "use a LOT of CPU power and cause music to skip or stutter. Currently, 'Do not update' (in the "
             "bottom-right corner) is ticked to prevent the position from being updated during playback."
             "\r\n\r\nUn-tick it?",
         .Icon = BoxIcon::Question,
         .Buttons = BoxButtons::YesNo});
    EXPECT_FALSE(P.App.Editing.PositionDisplay.NoUpdateCheck);
    EXPECT_TRUE(Fields.Mods.UseBeat.InUse);
    EXPECT_EQ(P.LogText(),
              "NoUpdateCheck clicked - UseNoUpdate -> TRUE\nUseBeatCheck clicked - UseBeat -> TRUE\n"
              "NoUpdateCheck clicked - UseNoUpdate -> FALSE\n");
}

TEST_F(BeatTest, WithAnyOtherAnswerDoNotUpdateStaysTicked) {
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    P.Boxes.AnswerNext(BoxAnswer::No);
    Fields.Mods.UseBeat.Ticked = true;
    EXPECT_TRUE(P.App.Editing.PositionDisplay.NoUpdateCheck);
    EXPECT_TRUE(Fields.Mods.UseBeat.InUse);
    Fields.Mods.UseBeat.Ticked = false;
    EXPECT_FALSE(Fields.Mods.UseBeat.InUse);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U) << "unticking asks nothing";
}

TEST_F(BeatTest, StandsBetweenTheVoicesPitchAndTheNotes) {
    P.SetSong({"1/8 A4 A4 -", "1/8 A4 - -"});
    test::RecordedPlayback recorded(P, [this] { P.App.Playing.Beat.LineStarts(); });
    Fields.Mods.UseBeat.Ticked = true;
    Fields.Mods.UseVoice.Ticked = true;
    Fields.Output.VoiceVolSlider = 5000;
    Fields.Song.PlayNote2Check = false;
    P.App.Outputs.SoundMods.Singer.StopMoving();
    P.Timeline.Clear();
    recorded.Playback.OnRangeEnd = [&] { recorded.Playback.StopPlayButton_Click(); };
    recorded.Playback.PlayAllButton_Click();
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.5)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit6, 1, 119)\n"
              "0.0000 speaker 250 Hz 15 ms\n0.0150 speaker 162 Hz 15 ms\n0.0300 speaker 106 Hz 15 ms\n"
              "0.0450 speaker 440 Hz 80 ms\n"
              "0.2600 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n0.2600 speaker 440 Hz 115 ms\n"
              "0.5100 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
}

}  // namespace
}  // namespace quavix
