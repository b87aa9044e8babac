// SPDX-License-Identifier: MIT
#include "playback/playback_engine.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/recorded_playback.h"

namespace quavix {
namespace {

class PlaybackTest : public testing::Test {
  protected:
    PlaybackTest() { P.SetTempo(120, 50); }

    /// Plays all until the range has ended `passes` times.
    void PlayAll(int passes = 1) {
        Playback.OnRangeEnd = [this, left = passes]() mutable {
            if (--left == 0)
                Playback.StopPlayButton_Click();
        };
        Playback.PlayAllButton_Click();
    }
    void StopAt(double ms) {
        P.Time.At(ms, [this] { Playback.StopPlayButton_Click(); });
    }
    std::string Tones() const { return P.Timeline.Text("speaker"); }
    void SetAlternation(std::int32_t stepMs, std::int32_t ratio) {
        Fields.Song.AlternateTime.Set(stepMs);
        Fields.Song.NoteSilenceRatio.Set(ratio);
    }
    /// Plays this song once, and returns all tones so far.
    std::string TonesOf(std::initializer_list<const char*> song) {
        P.SetSong(song);
        PlayAll();
        return Tones();
    }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    test::RecordedPlayback Recorded{P};
    PlaybackEngine& Playback = Recorded.Playback;
};

TEST_F(PlaybackTest, AtHalfTheRatioAToneLastsHalfItsLine) {
    EXPECT_EQ(TonesOf({"Quarter A4 - -", "Quarter A4 - -"}),
              "0.0000 speaker 440 Hz 250 ms\n0.5050 speaker 440 Hz 245 ms\n")
        << "the second starts at the end of a waiting slice, and its end stays on the timetable";
}

TEST_F(PlaybackTest, ALineOfOneNotePlaysItAlone) {
    EXPECT_EQ(TonesOf({"Quarter C4 - -", "Quarter - A4 -"}),
              "0.0000 speaker 262 Hz 250 ms\n0.5050 speaker 440 Hz 245 ms\n");
}

TEST_F(PlaybackTest, OnlyTheTickedOneOfTwoNotesSounds) {
    P.SetSong({"Quarter C4 A4 -"});
    Fields.Song.PlayNote1Check = false;
    PlayAll();
    EXPECT_EQ(Tones(), "0.0000 speaker 440 Hz 250 ms\n");
    P.Timeline.Clear();
    Fields.Song.PlayNote1Check = true;
    Fields.Song.PlayNote2Check = false;
    PlayAll();
    EXPECT_NE(Tones().find("262 Hz 250 ms"), std::string::npos);
    EXPECT_EQ(Tones().find("440"), std::string::npos);
}

TEST_F(PlaybackTest, WithNeitherNoteTickedOnlyTimePasses) {
    P.SetSong({"Quarter C4 A4 -"});
    Fields.Song.PlayNote1Check = false;
    Fields.Song.PlayNote2Check = false;
    PlayAll();
    EXPECT_EQ(Tones(), "");
    EXPECT_EQ(P.Time.Now(), 510 * SimulatedTime::CountsPerMs);
}

TEST_F(PlaybackTest, AlternationStopsWhereNoFullStepIsLeftAndTheNextLineTakesTheOtherNote) {
    P.SetSong({"1/8 C4 A4 -", "1/8 E4 F#5 -"});
    Fields.Song.AlternateTime.Set(50);
    Fields.Song.NoteSilenceRatio.Set(70);
    PlayAll();
    // 250 ms a line, of which 175 sound: tones may start before 125 ms.
    EXPECT_EQ(Tones(),
              "0.0000 speaker 262 Hz 50 ms\n0.0500 speaker 440 Hz 50 ms\n0.1000 speaker 262 Hz 50 ms\n"
              "0.2550 speaker 740 Hz 50 ms\n0.3050 speaker 330 Hz 50 ms\n0.3550 speaker 740 Hz 50 ms\n");
}

TEST_F(PlaybackTest, AlternationCarriesOnFromOnePlaybackToTheNext) {
    P.SetSong({"1/16 C4 A4 -"});
    Fields.Song.AlternateTime.Set(50);
    PlayAll();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 50 ms\n");
    P.Timeline.Clear();
    PlayAll();
    EXPECT_NE(Tones().find("440 Hz 50 ms"), std::string::npos);
}

TEST_F(PlaybackTest, AtRatio100TheStepKeepsItsLastValueInTheCall) {
    P.SetSong({"1/8 C4 A4 -", "1/8 C4 A4 -"});
    Fields.Song.AlternateTime.Set(100);
    Fields.Song.NoteSilenceRatio.Set(100);
    Recorded.OnLine = [this, line = 0]() mutable {
        Fields.Song.NoteSilenceRatio.Set(++line == 1 ? 99 : 100);
    };
    PlayAll();
    // First line: up to 147.5 ms. Second: with the step of 100 kept, up to 400 ms; with a step of 0 it were
    // 500.
    EXPECT_EQ(Tones(),
              "0.0000 speaker 262 Hz 100 ms\n0.1000 speaker 440 Hz 100 ms\n"
              "0.2600 speaker 262 Hz 100 ms\n0.3600 speaker 440 Hz 100 ms\n");
}

TEST_F(PlaybackTest, AlternatingNotesOfAGlideTakeTheirTimeToo) {
    P.SetSong({"1/8 C4 A4 -"});
    Fields.Mods.UsePorta.InUse = true;
    SetAlternation(50, 70);
    PlayAll();
    EXPECT_EQ(P.Timeline.Text("portamento 2"), "0.0000 portamento 262 Hz\n0.1000 portamento 262 Hz\n");
    EXPECT_EQ(P.Timeline.Text("portamento 4"), "0.0500 portamento 440 Hz\n");
}

TEST_F(PlaybackTest, AlternatingTonesKeepSoundingOnlyWhileAnotherFollows) {
    P.SetSong({"1/8 C4 A4 -"});
    Fields.Mods.UseFMOD.InUse = true;
    SetAlternation(50, 70);
    PlayAll();
    // It is paused after the last one, and once more at the end of playback.
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(null, 0)\n0.0500 fmod FMOD_Channel_SetPaused(null, 0)\n"
              "0.1000 fmod FMOD_Channel_SetPaused(null, 0)\n0.1500 fmod FMOD_Channel_SetPaused(null, 1)\n"
              "0.2550 fmod FMOD_Channel_SetPaused(null, 1)\n");
}

TEST_F(PlaybackTest, ALineThatStartsTooLatePlaysNoToneButStillWaits) {
    P.SetSong({"1/16 C4 - -", "1/16 E4 - -", "1/16 A4 - -"});
    Recorded.OnLine = [this, line = 0]() mutable {
        if (++line == 2)
            P.Time.Block(100);
    };
    PlayAll();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 62 ms\n0.2520 speaker 440 Hz 60 ms\n");
}

TEST_F(PlaybackTest, ALegatoLineHandsOverUpTo20MsEarly) {
    P.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter - - -", "Quarter A4 - -"});
    Fields.Song.NoteSilenceRatio.Set(100);
    PlayAll();
    EXPECT_EQ(Tones(),
              "0.0000 speaker 262 Hz 500 ms\n0.5000 speaker 330 Hz 500 ms\n1.4800 speaker 440 Hz 520 ms\n");
}

TEST_F(PlaybackTest, PlayAllRepeatsUntilStopIsClicked) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -", "1/8 A4 - -"});
    StopAt(1300);
    Playback.PlayAllButton_Click();
    std::string pitches;
    for (const std::string& line : P.Timeline.Lines()) {
        if (line.find("speaker") != std::string::npos)
            pitches += line.substr(line.find("speaker ") + 8, 3) + " ";
    }
    EXPECT_EQ(pitches, "262 330 440 262 330 440 ");
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(PlaybackTest, StopInTheWaitEndsAtItsSlice) {
    P.SetSong({"Whole C4 - -"});
    Fields.Song.NoteSilenceRatio.Set(1);
    StopAt(103);
    Playback.PlayAllButton_Click();
    EXPECT_EQ(P.Time.Now(), 110 * SimulatedTime::CountsPerMs);
}

TEST_F(PlaybackTest, StopDuringASpeakerToneLetsItEnd) {
    P.SetSong({"Whole C4 - -", "Whole E4 - -"});
    Fields.Song.NoteSilenceRatio.Set(100);
    StopAt(10);
    Playback.PlayAllButton_Click();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 2000 ms\n");
}

TEST_F(PlaybackTest, PlayFromSelectedLineStartsThereAndRepeatsFromThere) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -", "1/8 A4 - -"});
    P.App.List.Select(2);
    StopAt(900);
    Playback.PlayFromLineButton_Click();
    EXPECT_EQ(Tones(),
              "0.0000 speaker 330 Hz 125 ms\n0.2600 speaker 440 Hz 115 ms\n0.5100 speaker 330 Hz 115 ms\n"
              "0.7600 speaker 440 Hz 115 ms\n");
}

TEST_F(PlaybackTest, PlayFromSelectedLineWithoutOneStartsAtTheFirst) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -"});
    P.App.List.Select(2);
    P.App.List.UnselectAll();
    StopAt(100);
    Playback.PlayFromLineButton_Click();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 125 ms\n");
}

TEST_F(PlaybackTest, AnEmptyListOnlyEnablesTheButtonsAgain) {
    Fields.Mods.UseFMOD.InUse = true;
    Playback.PlayAllButton_Click();
    Playback.PlayFromLineButton_Click();
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod FMOD_Channel_SetPaused(null, 1)\n0.0000 fmod FMOD_Channel_SetPaused(null, 1)\n");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(PlaybackTest, AClickedLinePlaysOnceWithItsOwnBoxesWithoutWaitingOrMovingThePosition) {
    P.SetSong({"Quarter C4 - -", "Quarter C4 A4 -"});
    Fields.Song.ClickPlayNote1Check = false;
    Fields.Song.PlayNote2Check = false;
    P.App.Editing.PositionDisplay.lblPlayBar = "unchanged";
    P.App.Log.Enable();
    Playback.MainList_ItemClick(2);
    EXPECT_EQ(Tones(), "0.0000 speaker 440 Hz 250 ms\n");
    EXPECT_EQ(P.Time.Now(), 250 * SimulatedTime::CountsPerMs);
    EXPECT_NE(P.LogText().find("MusicIsPlaying -> FALSE"), std::string::npos);
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayBar.Get(), "001")
        << "shown once at its start, as for every playback";
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(PlaybackTest, AClickDuringPlaybackPlaysItsLineAndEndsThePlayback) {
    P.SetSong({"Quarter C4 - -", "Quarter A4 - -", "Quarter E4 - -"});
    P.Time.At(300, [this] { Playback.MainList_ItemClick(3); });
    Playback.PlayAllButton_Click();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 250 ms\n0.3000 speaker 330 Hz 250 ms\n");
    EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
}

TEST_F(PlaybackTest, EachLineIsSelectedScrolledToAndShownInTheModBoxes) {
    class Watcher : public MusicListObserver {
        void EnsureVisible(std::int32_t row) override { Rows += std::to_string(row) + " "; }

      public:
        std::string Rows;
    };
    P.SetSong({"1/8 C4 - Dot", "1/8 C4 - Tri"});
    Watcher watcher;
    P.App.List.AddObserver(watcher);
    std::string boxes;
    Recorded.OnLine = [&] {
        boxes += fmt::format("{}{}{} ", P.App.List.SelectedItem(), Fields.Entry.ModDottedCheck ? "D" : "",
                             Fields.Entry.ModTripletCheck ? "T" : "");
    };
    PlayAll();
    P.App.List.RemoveObserver(watcher);
    EXPECT_EQ(watcher.Rows, "1 2 ");
    EXPECT_EQ(boxes, "1D 2T ");
    EXPECT_EQ(P.App.List.Text(1, Cell::Mod), "Dot");
    EXPECT_EQ(P.App.List.Text(2, Cell::Mod), "Tri");
}

TEST_F(PlaybackTest, ControlsAreDisabledWhilePlayingAndEnabledAfterwards) {
    P.SetSong({"1/8 C4 - -"});
    bool during = false;
    Recorded.OnLine = [&] {
        during = !Fields.View.PianoKeysEnabled && !Fields.View.PlayAllButtonEnabled &&
                 !Fields.View.PlayFromLineButtonEnabled && Fields.View.StopPlayButtonEnabled &&
                 !P.App.Editing.PositionDisplay.NoUpdateCheckEnabled && Fields.State.MusicIsPlaying;
    };
    PlayAll();
    EXPECT_TRUE(during);
    EXPECT_TRUE(Fields.View.PianoKeysEnabled);
    EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
    EXPECT_TRUE(Fields.View.PlayFromLineButtonEnabled);
    EXPECT_FALSE(Fields.View.StopPlayButtonEnabled);
    EXPECT_TRUE(P.App.Editing.PositionDisplay.NoUpdateCheckEnabled);
}

TEST_F(PlaybackTest, TheBeepLabelShowsForEachTone) {
    P.SetSong({"1/8 C4 - -", "1/8 - - -"});
    std::string changes;
    Fields.View.BeepTextLabelVisible.Watch([&](bool visible) {
        changes += fmt::format("{}:{} ", P.Time.Now() / SimulatedTime::CountsPerMs, visible ? "on" : "off");
    });
    PlayAll();
    EXPECT_EQ(changes, "0:on 125:off ");
}

TEST_F(PlaybackTest, ThePositionMovesLineByLineAndStartsOver) {
    P.SetSong({"Half - - -", "Whole - - -", "1/16 - - -"});
    std::string positions = P.App.Editing.PositionDisplay.lblPlayBar.Get() + "/" +
                            P.App.Editing.PositionDisplay.lblPlayPos.Get() + " ";
    Recorded.OnLine = [&] {
        positions += P.App.Editing.PositionDisplay.lblPlayBar.Get() + "/" +
                     P.App.Editing.PositionDisplay.lblPlayPos.Get() + "/" +
                     P.App.Editing.PositionDisplay.lblPlaySig.Get() + " ";
    };
    PlayAll(2);
    EXPECT_EQ(positions,
              "001/001 001/01 /01.00 001/01 01/02/03.00 002/01 01/02/03.00 001/01 /01.00 001/01 01/02/03.00 "
              "002/01 01/02/03.00 ");
}

TEST_F(PlaybackTest, TripletsLeaveNoResidueInThePosition) {
    P.SetSong({"Whole - - Tri", "Whole - - tri", "Whole - - TRI", "Half - - -"});
    std::string last;
    Recorded.OnLine = [&] {
        last = P.App.Editing.PositionDisplay.lblPlayBar.Get() + " " +
               P.App.Editing.PositionDisplay.lblPlayPos.Get();
    };
    PlayAll();
    EXPECT_EQ(last, "002 01 ");
}

TEST_F(PlaybackTest, DoNotUpdateKeepsThePosition) {
    P.SetSong({"Half - - -", "Half - - -"});
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    std::string positions;
    Recorded.OnLine = [&] { positions += P.App.Editing.PositionDisplay.lblPlayPos.Get() + "|"; };
    PlayAll();
    EXPECT_EQ(positions, "01 |01 |");
}

TEST_F(PlaybackTest, DeletingTheLastLinesShowsTheMessagesAndGoesOnWithTheShorterList) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -", "1/8 A4 - -", "1/8 B4 - -"});
    P.Time.At(130, [this] {
        P.App.List.Remove(4);
        P.App.List.Remove(3);
    });
    StopAt(900);
    Playback.PlayAllButton_Click();
    EXPECT_EQ(P.Timeline.Text("box"),
              "0.2600 box \"PlayMusic sub\" EndPoint is 4\nHowever, that line doesn't exist.\n"
              "(Changing it to last line in the list)\n"
              "0.2600 box \"PlayMusic sub\" EndPoint changed to 2\n");
    for (const MessageBox& box : P.Boxes.Shown()) {
        EXPECT_EQ(box.Icon, BoxIcon::Warning);
        EXPECT_EQ(box.Buttons, BoxButtons::Ok);
    }
    EXPECT_EQ(Tones(),
              "0.0000 speaker 262 Hz 125 ms\n0.2600 speaker 330 Hz 115 ms\n0.5100 speaker 262 Hz 115 ms\n"
              "0.7600 speaker 330 Hz 115 ms\n");
}

TEST_F(PlaybackTest, DeletingTheLineAboutToBePlayedEndsWithAMessage) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -"});
    P.Time.At(130, [this] { P.App.List.Clear(); });
    Playback.PlayAllButton_Click();
    ASSERT_EQ(P.Boxes.Shown().size(), 3U);
    EXPECT_EQ(P.Boxes.Shown()[1].Text, "EndPoint changed to 0");
    EXPECT_EQ(P.Boxes.Shown()[2].Text,
              "EndPoint is 0\nHowever, somehow this program now is about to try to look at line 2.\n"
              "(Stopping playing)");
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
    EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
}

TEST_F(PlaybackTest, DeletingTheTripletThatIsPlayingDoesNoHarm) {
    P.SetSong({"1/8 C4 - -", "Whole E4 - Tri"});
    Fields.Output.MutePCSpeaker = true;
    P.Time.At(300, [this] { P.App.List.Remove(2); });
    StopAt(2000);
    EXPECT_NO_THROW(Playback.PlayAllButton_Click());
}

TEST_F(PlaybackTest, EditsAreSeenAtTheNextLine) {
    P.SetSong({"1/8 C4 - -", "1/8 E4 - -"});
    P.Time.At(130, [this] {
        P.App.List.SetText(2, Cell::Note1, "A4");
        P.App.List.SetText(2, Cell::Length, "1/16");
    });
    PlayAll();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 125 ms\n0.2600 speaker 440 Hz 52 ms\n");
}

TEST_F(PlaybackTest, AMissingStartPointEndsPlaybackAtOnce) {
    P.SetSong({"1/8 C4 - -"});
    std::int32_t start = 2;
    std::int32_t end = 2;
    Playback.PlayMusic(start, end, false);
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown()[0].Text, "StartPoint is 2\nHowever, that line doesn't exist.\n(Exiting sub)");
    EXPECT_EQ(Tones(), "");
}

TEST_F(PlaybackTest, AMissingEndPointAtTheStartBecomesTheLastLineAndEndsTheCall) {
    P.SetSong({"1/8 C4 - -", "1/8 C4 - -"});
    std::int32_t start = 1;
    std::int32_t end = 9;
    Playback.PlayMusic(start, end, false);
    ASSERT_EQ(P.Boxes.Shown().size(), 2U);
    EXPECT_EQ(end, 2);
    EXPECT_EQ(Tones(), "");
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(PlaybackTest, ATempoOfZeroIsAnErrorThatLeavesTheButtonsUsable) {
    P.SetSong({"1/8 C4 - -"});
    Fields.Song.BPM.Set(0);
    EXPECT_FALSE(P.App.Handlers.Run("PlayAllButton_Click", [this] { Playback.PlayAllButton_Click(); }));
    EXPECT_EQ(P.Boxes.Shown().back().Text, "Run-time error '11':\n\nDivision by zero");
    EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
    EXPECT_FALSE(Fields.View.StopPlayButtonEnabled);
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
    Fields.Song.BPM.Set(120);
    PlayAll();
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 125 ms\n");
}

TEST_F(PlaybackTest, ALogThatFailsInTheMiddleLeavesTheButtonsUsable) {
    P.SetSong({"1/8 C4 - -", "1/8 C4 - -"});
    P.App.Log.Enable();
    P.Time.At(100, [this] { P.Disk.FailWriting("/program/debuglog.txt", std::errc::no_space_on_device); });
    EXPECT_FALSE(P.App.Handlers.Run("PlayAllButton_Click", [this] { Playback.PlayAllButton_Click(); }));
    EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
    EXPECT_TRUE(Fields.View.PianoKeysEnabled);
    EXPECT_FALSE(Fields.View.StopPlayButtonEnabled);
    EXPECT_FALSE(Fields.View.BeepTextLabelVisible);
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(PlaybackTest, LinesOfUnknownLengthTakeNoTime) {
    EXPECT_EQ(TonesOf({"Long C4 - -", "1/8 A4 - -"}), "0.0000 speaker 440 Hz 125 ms\n");
}

TEST_F(PlaybackTest, ASongWithoutAnyTimeCanStillBeStopped) {
    P.SetSong({"Long C4 - -"});
    StopAt(5);
    Playback.PlayAllButton_Click();
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(PlaybackTest, AlternationInStepsOfNoTimeIsSilenceOfTheLinesLength) {
    P.SetSong({"1/16 C4 A4 -", "1/8 E4 - -"});
    for (const int ms : {0, -1, -32768}) {
        Fields.Song.AlternateTime.Set(ms);
        for (const bool mute : {false, true}) {
            Fields.Output.MutePCSpeaker = mute;
            const std::int64_t start = P.Time.Now();
            PlayAll();
            EXPECT_EQ((P.Time.Now() - start) / SimulatedTime::CountsPerMs, 385) << ms;
        }
    }
}

TEST_F(PlaybackTest, ATempoChangeHoldsFromWhereTheMusicIsWithoutAJump) {
    P.SetSong({"Quarter C4 - -"});
    P.Time.At(2300, [this] { Fields.Song.BPM.Type("60"); });
    StopAt(6400);
    Playback.PlayAllButton_Click();
    // Beats 1 to 4 at half a second each; the fifth, which began at 2.0 s, lasts a second from then on.
    EXPECT_EQ(Tones(),
              "0.0000 speaker 262 Hz 250 ms\n0.5050 speaker 262 Hz 245 ms\n1.0050 speaker 262 Hz 245 ms\n"
              "1.5050 speaker 262 Hz 245 ms\n2.0050 speaker 262 Hz 245 ms\n3.0000 speaker 262 Hz 500 ms\n"
              "4.0100 speaker 262 Hz 490 ms\n5.0100 speaker 262 Hz 490 ms\n6.0100 speaker 262 Hz 490 ms\n");
}

TEST_F(PlaybackTest, RestsSilenceAGeneratorThatIsNeverSilentOtherwise) {
    P.SetSong({"1/8 - - -", "1/8 - A4 -", "1/8 C4 - -", "1/8 C4 A4 -"});
    Fields.Mods.UseFMOD.InUse = Fields.Output.DoNotShutUpFMOD = true;
    const auto stops = [this](bool play1, bool play2) {
        Fields.Song.PlayNote1Check = play1;
        Fields.Song.PlayNote2Check = play2;
        P.Timeline.Clear();
        PlayAll();
        // A tone that is kept sounding is paused by nothing else.
        const std::string text = P.Timeline.Text("fmod FMOD_Channel_SetPaused(null, 1)");
        return std::count(text.begin(), text.end(), '\n') - 1;  // one at the end of playback
    };
    EXPECT_EQ(stops(true, true), 1);
    EXPECT_EQ(stops(true, false), 2);
    EXPECT_EQ(stops(false, true), 2);
    EXPECT_EQ(stops(false, false), 0);
    Fields.Output.DoNotShutUpFMOD = false;
    EXPECT_EQ(stops(true, true), 3) << "each tone its own, and the rest none";
}

TEST_F(PlaybackTest, TheVoiceFollowsNote2) {
    P.SetSong({"1/8 C4 A4 -", "1/8 C4 - -"});
    Fields.Mods.UseVoice.Ticked = true;
    Fields.Output.VoiceVolSlider = 2500;
    P.Timeline.Clear();
    P.App.Log.Enable();
    PlayAll();
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_ChannelGroup_SetVolume"),
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.25)\n"
              "0.2550 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n"
              "0.5100 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
    EXPECT_NE(
        P.LogText().find("VoiceMainForm.ChangeVoiceVol 0.25\n        VoiceMainForm.ChangeBaseFreq 118.8\n"),
        std::string::npos);
}

TEST_F(PlaybackTest, TheBeatHookRunsBeforeEachLinesTonesAndTakesItsTimeFromThem) {
    P.SetSong({"1/8 C4 - -"});
    Recorded.OnLine = [this] { P.Time.Block(45); };
    PlayAll();
    EXPECT_EQ(P.Timeline.Text(), "0.0000 line\n0.0450 speaker 262 Hz 80 ms\n");
}

TEST_F(PlaybackTest, WritesTheToneCodeOfTonesAndWaits) {
    P.SetSong({"1/16 C4 - -"});
    P.App.Outputs.ToneCode.UseWriteCode = true;
    PlayAll();
    std::string code = "Beep         262,   62.5     'C4\r\n";
    for (int slice = 0; slice < 5; ++slice)
        code += "MsgWaitObj            15\r\n";
    EXPECT_EQ(P.Disk.Content("/program/tonecode.txt"), code);
}

TEST_F(PlaybackTest, LogsAPlaybackLineByLine) {
    P.SetSong({"1/16 C4 A4 -"});
    P.App.Log.Enable();
    Fields.Song.AlternateTime.Set(40);
    PlayAll();
    EXPECT_EQ(P.LogText(),
              "    PlayMusic() - START\n"
              "        BeforePlayMusic() - START\n"
              "        Disabling common controls\n"
              "        Enabling 'Stop playing'\n"
              "        BeforePlayMusic() - END\n\n"
              "    StartPoint = 1\n"
              "    EndPoint = 1\n"
              "    QueryPerformanceCounter returned 0\n"
              "    StartTickTime = 0\n"
              "        WorkOutPlayPos(1) - START\n"
              "        Calculating play position by summing all line lengths\n"
              "        WorkOutPlayPos() - END\n\n"
              "    CurrentLineLength = 0.25\n"
              "    CurrentNote1 = \"C4\"\n"
              "    CurrentNote2 = \"A4\"\n"
              "    QueryPerformanceCounter returned 0\n"
              "    CurrentTickTime = 0\n"
              "        Alternating section - START\n"
              "        BeepLength = 0.125\n"
              "        Alternate: 1 \n"
              "            UniBeep(NOTESTRING:\"C4\", DURATION:40, NOTEISFREQUENCY:FALSE, "
              "SPECIFICCONTINUOUS:FALSE, "
              "SPECIFICSTOP:FALSE, FMODNOWAIT:FALSE) - START\n"
              "            PC Speaker Beep 262, 40 - BEFORE\n"
              "            PC Speaker Beep - AFTER\n"
              "            UniBeep() - END\n\n"
              "        Alternating section - END\n\n"
              "        'Waiting for next note' section - START. . . . . . \n"
              "        'Waiting for next note' section - END\n\n"
              "        WorkOutPlayPos(1) - START\n"
              "        Calculating play position by summing all line lengths\n"
              "        WorkOutPlayPos() - END\n\n"
              "    Respond to any input\n"
              "        AfterPlayMusic() - START\n"
              "        Enabling common controls\n"
              "        Disabling 'Stop playing'\n"
              "        FMODBeepStop()\n"
              "        AfterPlayMusic() - END\n\n"
              "    PlayMusic() - END\n\n");
}

}  // namespace
}  // namespace quavix
