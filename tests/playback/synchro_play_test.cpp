// SPDX-License-Identifier: MIT
#include "playback/synchro_play.h"

#include <functional>

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

/// A program whose clock shows some time at the start, with a song of one line.
class SynchroTest : public testing::Test {
  protected:
    explicit SynchroTest(TimeOfDay now = {12, 0, 0}) : P({.Time = now}) {
        P.SetSong({"Quarter C4 - -"});
        Fields.Mods.UseSynchro.Ticked = true;
    }

    void SetTime(const char* hour, const char* minute, const char* second) {
        Synchro.txtHour.Type(hour);
        Synchro.txtMinute.Type(minute);
        Synchro.txtSecond.Type(second);
    }
    /// Waits, and stops the music soon after its start, or the waiting itself at that time.
    void Wait(double stopAtMs) {
        P.Time.At(stopAtMs, [this] {
            if (Fields.State.MusicIsPlaying)
                P.App.Playing.PlaybackEngine.StopPlayButton_Click();
            else
                Synchro.btnWait_Click();
        });
        Synchro.btnWait_Click();
    }
    /// Waits, and returns the tones until nothing waits or plays any more.
    std::string TonesUntilIdle() {
        Synchro.btnWait_Click();
        P.Time.RunUntil(20'000);
        EXPECT_EQ(Shown(), Idle);
        return Tones();
    }
    std::string Tones() const { return P.Timeline.Text("speaker"); }
    std::string Shown() const {
        return Synchro.lblWaiting.Get() + ", " + std::to_string(Synchro.lblWaitingBackColor.Get()) + ", " +
               Synchro.btnWaitCaption.Get() + (Synchro.btnWaitEnabled ? "" : " (disabled)") +
               (Synchro.TimeBoxesEnabled ? "" : ", boxes disabled");
    }
    static constexpr const char* Idle = "Currently NOT waiting, 255, Start waiting";

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    SynchroPlay& Synchro = P.App.Playing.SynchroPlay;
};

TEST_F(SynchroTest, PlaysWhenTheClockShowsTheTime) {
    SetTime("12", "0", "10");
    Wait(10'100);
    EXPECT_EQ(Tones(), "10.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, ShowsWhatItDoes) {
    EXPECT_EQ(Shown(), Idle);
    std::string waiting;
    std::string playing;
    P.Time.At(5'000, [&] { waiting = Shown(); });
    P.Time.At(10'100, [&] { playing = Shown(); });
    SetTime("12", "0", "10");
    Wait(10'200);
    EXPECT_EQ(waiting, "Currently waiting, 255, Stop waiting, boxes disabled");
    EXPECT_EQ(playing, "Playing, 65535, Stop waiting (disabled), boxes disabled");
    EXPECT_EQ(Shown(), Idle);
    EXPECT_FALSE(Synchro.CurrentlyWaiting());
    EXPECT_TRUE(Synchro.ShouldBeNotWaiting());
}

TEST_F(SynchroTest, PlaybackEnablesTheButtonAgainAndLogsIt) {
    P.App.Log.Enable();
    SetTime("12", "0", "1");
    Wait(1'100);
    EXPECT_NE(P.LogText().find("FMODBeepStop()\n        SynchroForm.ShouldBeNotWaiting = TRUE, re-enabling "
                               "'Start Waiting' button\n"),
              std::string::npos)
        << P.LogText();
}

TEST_F(SynchroTest, OrdinaryPlaybackDoesNotTouchIt) {
    P.App.Log.Enable();
    P.Time.At(100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(P.LogText().find("SynchroForm"), std::string::npos);
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, TwoProgramsStartWithinOneSliceOfEachOther) {
    test::SimulatedProgram other({.Counter = 12'345'678, .TickCount = 0xFFFF'F000, .Time = {12, 0, 0}});
    other.SetSong({"Quarter C4 - -"});
    SetTime("12", "0", "10");
    other.App.Playing.SynchroPlay.txtHour.Type("12");
    other.App.Playing.SynchroPlay.txtMinute.Type("0");
    other.App.Playing.SynchroPlay.txtSecond.Type("10");
    // The second user clicks later, in between two slices of the first.
    other.Time.Block(3'333);
    other.Time.At(10'100, [&] { other.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    other.App.Playing.SynchroPlay.btnWait_Click();
    Wait(10'100);
    EXPECT_EQ(Tones(), "10.0000 speaker 262 Hz 386 ms\n");
    EXPECT_EQ(other.Timeline.Text("speaker"), "10.0010 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, ATimeThatHasPassedTodayStartsAtOnce) {
    SetTime("11", "59", "59");
    Wait(100);
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 386 ms\n");
    SetTime("12", "0", "0");
    Wait(600);
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 386 ms\n0.4010 speaker 262 Hz 386 ms\n")
        << "this second has begun too";
}

struct BeforeMidnight : SynchroTest {
    BeforeMidnight() : SynchroTest({23, 59, 50}) {}
};

TEST_F(BeforeMidnight, ATimeOfTomorrowStartsAtOnce) {
    SetTime("0", "0", "10");
    Wait(100);
    EXPECT_EQ(Tones(), "0.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(BeforeMidnight, TheLastSecondOfTheDayIsWaitedFor) {
    SetTime("23", "59", "59");
    Wait(9'100);
    EXPECT_EQ(Tones(), "9.0000 speaker 262 Hz 386 ms\n");
}

struct Morning : SynchroTest {
    Morning() : SynchroTest({9, 59, 58}) {}
};

TEST_F(Morning, HoursAreComparedBeforeMinutesAndSeconds) {
    SetTime("10", "0", "0");
    Wait(2'100);
    EXPECT_EQ(Tones(), "2.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, StopWaitingEndsItWithoutPlaying) {
    SetTime("12", "0", "10");
    Wait(4'001);
    EXPECT_EQ(P.Time.Now(), 4'002 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(Tones(), "");
    EXPECT_EQ(Shown(), Idle);
    P.Time.RunUntil(20'000);
    EXPECT_EQ(Tones(), "");
}

TEST_F(SynchroTest, StoppingAndStartingAgainWaitsForTheNewTimeOnly) {
    SetTime("12", "0", "10");
    P.Time.At(1'000, [&] {
        Synchro.btnWait_Click();
        Synchro.txtSecond.Type("5");
        Synchro.btnWait_Click();
    });
    P.Time.At(5'100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    EXPECT_EQ(TonesUntilIdle(), "5.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, StoppedAndStartedWithoutEndItPlaysAtTheTime) {
    int left = 200'000;
    SetTime("12", "0", "10");
    const std::function<void()> click = [&] {
        if (--left > 0)
            P.Time.At(1'000, click);
        Synchro.btnWait_Click();
    };
    P.Time.At(1'000, click);
    P.Time.At(10'100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    EXPECT_EQ(TonesUntilIdle(), "10.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, TheWindowStaysUsableMeanwhile) {
    SetTime("12", "0", "10");
    std::string clock;
    P.Time.At(6'050, [&] { clock = Synchro.lblCurrentTime; });
    Wait(10'100);
    EXPECT_EQ(clock, "12:00:06");
}

TEST_F(SynchroTest, StartsAtTheSelectedLineIfThatIsChosen) {
    P.SetSong({"Quarter C4 - -", "Quarter D4 - -"});
    P.App.List.Select(2);
    Synchro.optStart = false;
    Synchro.optCurrent = true;
    SetTime("12", "0", "1");
    P.Time.At(500, [&] { P.App.List.Select(1); });
    P.Time.At(600, [&] { P.App.List.Select(2); });
    Wait(1'100);
    EXPECT_EQ(Tones(), "1.0000 speaker 294 Hz 386 ms\n");
}

TEST_F(SynchroTest, ASongWithoutLinesEndsTheWaiting) {
    P.SetSong({});
    SetTime("12", "0", "1");
    Synchro.btnWait_Click();
    EXPECT_EQ(P.Time.Now(), SimulatedTime::CountsPerSecond);
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, AnErrorOfPlaybackLeavesNothingWaiting) {
    SetTime("12", "0", "1");
    Fields.Song.BPM.Set(0);
    EXPECT_THROW(Synchro.btnWait_Click(), std::exception);
    EXPECT_EQ(Shown(), Idle);
    EXPECT_FALSE(Synchro.CurrentlyWaiting());
}

TEST_F(SynchroTest, PlayingByHandMeanwhileEndsTheWaiting) {
    SetTime("12", "0", "10");
    P.Time.At(1'000, [&] { P.App.Playing.PlaybackEngine.PlayAllButton_Click(); });
    P.Time.At(1'100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    EXPECT_EQ(TonesUntilIdle(), "1.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, AClickedLineDoesNotEndTheWaiting) {
    SetTime("12", "0", "10");
    P.Time.At(1'000, [&] { P.App.Playing.PlaybackEngine.MainList_ItemClick(1); });
    Wait(10'100);
    EXPECT_EQ(Tones(), "1.0000 speaker 262 Hz 386 ms\n10.0000 speaker 262 Hz 386 ms\n");
}

TEST_F(SynchroTest, WhileMusicPlaysWaitingCannotBeStarted) {
    SetTime("12", "0", "10");
    std::string during;
    P.Time.At(400, [&] {
        Synchro.btnWait_Click();
        during = Shown();
        P.App.Playing.PlaybackEngine.StopPlayButton_Click();
    });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(during, std::string(Idle) + " (disabled)");
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, StartingDuringAToneLetsTheToneEndFirst) {
    Fields.Mods.UseMotor.Ticked = true;
    SetTime("12", "0", "3");
    P.Time.At(100, [&] { Synchro.btnWait_Click(); });
    P.Time.At(3'100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    std::string note = "C4";
    P.App.Outputs.ToneDispatcher.UniBeep(note, 285);
    EXPECT_EQ(P.Timeline.Text("serial #"), "0.0000 serial #0P1350\\r\n0.3000 serial #0P1470\\r\n");
    EXPECT_TRUE(Synchro.CurrentlyWaiting());
    P.Time.RunUntil(10'000);
    EXPECT_NE(P.Timeline.Text("serial #").find("3.0000 serial #0P1350\\r\n"), std::string::npos);
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, StoppingBeforeThatToneEndsPreventsTheWait) {
    Fields.Output.MutePCSpeaker = true;
    SetTime("12", "0", "3");
    P.Time.At(100, [&] { Synchro.btnWait_Click(); });
    P.Time.At(200, [&] { Synchro.btnWait_Click(); });
    std::string note = "C4";
    P.App.Outputs.ToneDispatcher.UniBeep(note, 300);
    P.Time.RunUntil(10'000);
    EXPECT_EQ(Shown(), Idle);
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
}

TEST_F(SynchroTest, TheDelayIsTheBufferLengthMinusTheTimeOfTheStart) {
    std::int32_t bufferMs = 93;
    Fields.Mods.UseFMOD.Enabled = true;
    SynchroPlay synchro({Fields.Mods, Fields.State, P.Time, P.Time, P.App.Wait, P.Boxes, P.App.Handlers,
                         [] { return false; }, [&] { P.Timeline.Record(P.Time.Now(), "play"); }, [] {},
                         [&] { return bufferMs; }});
    synchro.chkStartInDelay = true;
    const auto wait = [&](const char* second) {
        synchro.txtHour.Type("12");
        synchro.txtMinute.Type("0");
        synchro.txtSecond.Type(second);
        synchro.btnWait_Click();
    };
    wait("1");
    EXPECT_EQ(P.Timeline.Text("play"), "1.0780 play\n");
    bufferMs = 0;
    wait("2");
    synchro.chkStartInDelay = false;
    bufferMs = 93;
    wait("3");
    EXPECT_EQ(P.Timeline.Text("play"), "1.0780 play\n2.0000 play\n3.0000 play\n");
    EXPECT_FALSE(synchro.CurrentlyWaiting());
}

TEST_F(SynchroTest, ItCanBeStoppedDuringTheDelayToo) {
    bool played = false;
    Fields.Mods.UseFMOD.Enabled = true;
    SynchroPlay synchro({Fields.Mods, Fields.State, P.Time, P.Time, P.App.Wait, P.Boxes, P.App.Handlers,
                         [] { return false; }, [&] { played = true; }, [] {}, [] { return 5'000; }});
    synchro.chkStartInDelay = true;
    synchro.txtSecond.Type("0");
    synchro.txtMinute.Type("0");
    P.Time.At(1'000, [&] { synchro.btnWait_Click(); });
    synchro.btnWait_Click();
    EXPECT_FALSE(played);
    EXPECT_FALSE(synchro.CurrentlyWaiting());
}

TEST_F(SynchroTest, TheDelayIsEnabledIfTheLibraryIsLoaded) {
    EXPECT_FALSE(Synchro.chkStartInDelayEnabled);
    Fields.Mods.UseFMOD.Enabled = true;
    EXPECT_TRUE(Synchro.chkStartInDelayEnabled);
    Fields.Mods.UseFMOD.Enabled = false;
    Synchro.chkStartInDelay = true;
    SetTime("12", "0", "1");
    Wait(1'100);
    EXPECT_EQ(Tones(), "1.0000 speaker 262 Hz 386 ms\n")
        << "without the library nobody is asked for its delay";
}

TEST_F(SynchroTest, ClosingItsWindowStopsTheWaiting) {
    SetTime("12", "0", "10");
    P.Time.At(1'000, [&] { Fields.Mods.UseSynchro.Ticked = false; });
    Synchro.btnWait_Click();
    EXPECT_EQ(P.Time.Now(), 1'000 * SimulatedTime::CountsPerMs);
    P.Time.RunUntil(20'000);
    EXPECT_EQ(Tones(), "");
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, ClosingItsWindowLetsTheMusicPlayOn) {
    SetTime("12", "0", "1");
    P.SetSong({"Quarter C4 - -", "Quarter D4 - -"});
    P.Time.At(1'400, [&] { Fields.Mods.UseSynchro.Ticked = false; });
    Wait(1'800);
    EXPECT_EQ(Tones(), "1.0000 speaker 262 Hz 386 ms\n1.4310 speaker 294 Hz 383 ms\n");
    EXPECT_EQ(Shown(), Idle);
}

TEST_F(SynchroTest, AProgramThatIsEndingPlaysNothing) {
    SetTime("12", "0", "10");
    P.Time.At(1'000, [&] { Fields.State.ShuttingDown = true; });
    Synchro.btnWait_Click();
    EXPECT_EQ(P.Time.Now(), 1'000 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(Tones(), "");
}

TEST_F(SynchroTest, SuggestsTheNextFullMinute) {
    const auto suggested = [](TimeOfDay now) {
        const test::SimulatedProgram p({.Time = now});
        const SynchroPlay& synchro = p.App.Playing.SynchroPlay;
        return synchro.txtHour.Text() + ":" + synchro.txtMinute.Text() + ":" + synchro.txtSecond.Text();
    };
    EXPECT_EQ(suggested({12, 0, 0}), "12:1:0");
    EXPECT_EQ(suggested({9, 8, 59}), "9:9:0");
    EXPECT_EQ(suggested({9, 59, 1}), "10:0:0");
    EXPECT_EQ(suggested({23, 59, 59}), "0:0:0");
}

TEST_F(SynchroTest, OpeningAgainReplacesOnlyAPastTime) {
    SetTime("13", "30", "15");
    Fields.Mods.UseSynchro.Ticked = false;
    Fields.Mods.UseSynchro.Ticked = true;
    EXPECT_EQ(Synchro.txtMinute.Text(), "30");
    SetTime("12", "0", "5");
    Fields.Mods.UseSynchro.Ticked = false;
    P.Time.Block(65'000);
    Fields.Mods.UseSynchro.Ticked = true;
    EXPECT_EQ(Synchro.txtMinute.Text(), "2");
    EXPECT_EQ(Synchro.txtSecond.Text(), "0");
}

TEST_F(SynchroTest, TheClockRunsOnlyWhileTheWindowIsShown) {
    EXPECT_EQ(Synchro.lblCurrentTime.Get(), "12:00:00");
    P.Time.RunUntil(61'050);
    EXPECT_EQ(Synchro.lblCurrentTime.Get(), "12:01:01");
    Fields.Mods.UseSynchro.Ticked = false;
    P.Time.RunUntil(70'000);
    EXPECT_EQ(Synchro.lblCurrentTime.Get(), "12:01:01");
}

TEST_F(SynchroTest, TextThatIsNoTimeIsIgnored) {
    for (const char* text : {"a", "1a", "-1", "1.5", "123", " 1", "+1", "\xC3\xA9"}) {
        Synchro.txtMinute.Type("7");
        Synchro.txtMinute.Type(text);
        EXPECT_EQ(Synchro.txtMinute.Text(), "7") << text;
    }
}

TEST_F(SynchroTest, NumbersOutOfRangeAreMarked) {
    Synchro.txtHour.Type("24");
    Synchro.txtMinute.Type("60");
    Synchro.txtSecond.Type("99");
    for (const Setting* box : {&Synchro.txtHour, &Synchro.txtMinute, &Synchro.txtSecond})
        EXPECT_EQ(box->BackColor(), colour::Orange);
    SetTime("23", "59", "05");
    for (const Setting* box : {&Synchro.txtHour, &Synchro.txtMinute, &Synchro.txtSecond})
        EXPECT_EQ(box->BackColor(), colour::WindowBackground);
}

TEST_F(SynchroTest, AnInvalidTimeIsReportedAndNotWaitedFor) {
    const char* const bad[][3] = {{"24", "0", "0"}, {"12", "60", "0"}, {"12", "0", "60"},
                                  {"", "0", "0"},   {"12", "", "0"},   {"12", "0", ""}};
    for (const auto& time : bad) {
        SetTime(time[0], time[1], time[2]);
        Synchro.btnWait_Click();
        EXPECT_EQ(Shown(), Idle);
        EXPECT_FALSE(Synchro.CurrentlyWaiting());
    }
    ASSERT_EQ(P.Boxes.Shown().size(), std::size(bad));
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Synchronized Play Settings");
    EXPECT_EQ(P.Boxes.Shown()[0].Icon, BoxIcon::Warning);
    EXPECT_EQ(P.Time.Now(), 0);
    EXPECT_EQ(Tones(), "");
}

}  // namespace
}  // namespace quavix
