// SPDX-License-Identifier: MIT
#include "playback/metronome.h"

#include <functional>

#include <gtest/gtest.h>

#include "app/desktop_program.h"
#include "simulation/simulated_processes.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class MetronomeTest : public testing::Test {
  protected:
    MetronomeTest() { Fields.Song.BPM.Set(120); }

    /// Starts the metronome and returns the tones until it ends. Expects that its button is disabled at this
    /// time, because the two can't have the thread at once, and enabled at the end.
    std::string TonesOfOneDisabledAt(double ms) {
        bool enabledDuring = true;
        P.Time.At(ms, [&] { enabledDuring = P.App.Playing.Metronome.MetronomeButtonEnabled; });
        P.App.Playing.Metronome.MetronomeButton_Click();
        EXPECT_FALSE(enabledDuring);
        EXPECT_TRUE(P.App.Playing.Metronome.MetronomeButtonEnabled);
        return Tones();
    }

    /// Runs from a click now to one at `offMs`.
    void ClickUntil(double offMs) {
        P.Time.At(offMs, [this] { P.App.Playing.Metronome.MetronomeButton_Click(); });
        P.App.Playing.Metronome.MetronomeButton_Click();
        EXPECT_FALSE(P.App.Playing.Metronome.MetronomeIsOn);
    }
    std::string Tones() const { return P.Timeline.Text("speaker"); }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
};

TEST_F(MetronomeTest, InThreeFourClicksHighLowLowHigh) {
    Fields.Song.BeatsPerBar.Set(3);
    ClickUntil(1600);
    EXPECT_EQ(Tones(),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n1.0000 speaker 500 Hz 20 ms\n"
              "1.5000 speaker 1000 Hz 20 ms\n");
}

TEST_F(MetronomeTest, ATimeSignatureThatShrinksStartsTheNextBar) {
    P.Time.At(700, [this] { Fields.Song.BeatsPerBar.Set(2); });
    ClickUntil(1600);
    EXPECT_EQ(Tones(),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n1.0000 speaker 500 Hz 20 ms\n"
              "1.5000 speaker 1000 Hz 20 ms\n");
}

TEST_F(MetronomeTest, ANewTempoHoldsFromTheNextBeatOn) {
    P.Time.At(700, [this] { Fields.Song.BPM.Set(60); });
    P.Time.At(2100, [this] { Fields.Song.BPM.Set(240); });
    ClickUntil(3600);
    EXPECT_EQ(Tones(),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n1.0000 speaker 500 Hz 20 ms\n"
              "2.0100 speaker 500 Hz 20 ms\n3.0050 speaker 1000 Hz 20 ms\n3.2500 speaker 500 Hz 20 ms\n"
              "3.5100 speaker 500 Hz 20 ms\n")
        << "each at the end of a waiting slice";
}

TEST_F(MetronomeTest, DoesNotDrift) {
    Fields.Song.BPM.Set(139);
    double worst = 0;
    int clicks = 0;
    Fields.View.BeepTextLabelVisible.Watch([&](bool visible) {
        if (visible) {
            const double due = clicks++ * 60.0 / 139;
            worst = std::max(worst, static_cast<double>(P.Time.Now()) / SimulatedTime::CountsPerSecond - due);
        }
    });
    ClickUntil(600'000);
    EXPECT_EQ(clicks, 1390);
    EXPECT_LT(worst, 0.0151) << "never later than one waiting slice";
}

TEST_F(MetronomeTest, BeatsMissedUnderAMessageBoxAreSkipped) {
    P.Time.At(600, [this] { P.Time.Block(2100); });
    ClickUntil(3600);
    EXPECT_EQ(Tones(),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n"
              "2.7000 speaker 500 Hz 20 ms\n"  // the beat of 2.5, the second of its bar
              "3.0050 speaker 500 Hz 20 ms\n3.5050 speaker 500 Hz 20 ms\n");
}

TEST_F(MetronomeTest, ShowsTheBeepLabelWhileItClicks) {
    std::string changes;
    Fields.View.BeepTextLabelVisible.Watch([&](bool visible) {
        changes += fmt::format("{}:{} ", P.Time.Now() / SimulatedTime::CountsPerMs, visible ? "on" : "off");
    });
    ClickUntil(600);
    EXPECT_EQ(changes, "0:on 20:off 500:on 520:off ");
}

TEST_F(MetronomeTest, WritesTheToneCodeOfEachSlice) {
    Fields.Song.BPM.Set(600);
    P.App.Outputs.ToneCode.UseWriteCode = true;
    ClickUntil(115);
    std::string slices;
    for (int i = 0; i < 6; ++i)
        slices += "MsgWaitObj            15\r\n";
    EXPECT_EQ(P.Disk.Content("/program/tonecode.txt"),
              "Beep        1000,     20     '1000 Hz [no note]\r\n" + slices +
                  "Beep         500,     20     '500 Hz [no note]\r\n");
}

TEST_F(MetronomeTest, LogsItsClicks) {
    P.App.Log.Enable();
    ClickUntil(100);
    const std::string beep =
        "        UniBeep(NOTESTRING:\"1000\", DURATION:20, NOTEISFREQUENCY:TRUE, SPECIFICCONTINUOUS:FALSE, "
        "SPECIFICSTOP:FALSE, FMODNOWAIT:FALSE) - START\n"
        "        PC Speaker Beep 1000, 20 - BEFORE\n"
        "        PC Speaker Beep - AFTER\n"
        "        UniBeep() - END\n\n";
    EXPECT_EQ(P.LogText(),
              "    MetronomeButton clicked - START\n"
              "    Metronome is ON\n" +
                  beep +
                  "        MetronomeButton clicked - START\n"
                  "        Metronome is OFF\n"
                  "        MetronomeButton clicked - END\n\n"
                  "    MetronomeButton clicked - END\n\n");
}

TEST_F(MetronomeTest, SwitchingItOffAndOnStartsANewBar) {
    P.Time.At(700, [this] {
        P.App.Playing.Metronome.MetronomeButton_Click();
        P.App.Playing.Metronome.MetronomeButton_Click();
    });
    ClickUntil(1300);
    EXPECT_EQ(Tones(),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n0.7000 speaker 1000 Hz 20 ms\n"
              "1.2000 speaker 500 Hz 20 ms\n");
}

TEST_F(MetronomeTest, SwitchedOffAndOnWithoutEndItClicksOn) {
    int left = 200'000;
    const std::function<void()> click = [&] {
        if (--left > 0)
            P.Time.At(700, click);
        P.App.Playing.Metronome.MetronomeButton_Click();
    };
    P.Time.At(700, click);
    ClickUntil(1500);
    EXPECT_TRUE(Tones().ends_with("\n0.8200 speaker 1000 Hz 20 ms\n1.3200 speaker 500 Hz 20 ms\n"))
        << Tones();
}

TEST_F(MetronomeTest, PlayAllSwitchesItOffFirst) {
    P.SetSong({"Quarter A4 - -"});
    P.App.Playing.PlaybackEngine.OnRangeEnd = [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    P.Time.At(700, [this] { P.App.Playing.PlaybackEngine.PlayAllButton_Click(); });
    EXPECT_EQ(TonesOfOneDisabledAt(1180),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n0.7000 speaker 440 Hz 450 ms\n");
    EXPECT_FALSE(P.App.Playing.Metronome.MetronomeIsOn);
}

TEST_F(MetronomeTest, WaitingForTheSynchronizedStartSwitchesItOffAtOnce) {
    P.SetSong({"Quarter A4 - -"});
    P.App.Playing.PlaybackEngine.OnRangeEnd = [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    P.App.Playing.SynchroPlay.txtHour.Type("12");
    P.App.Playing.SynchroPlay.txtMinute.Type("0");
    P.App.Playing.SynchroPlay.txtSecond.Type("2");
    P.Time.At(700, [this] { P.App.Playing.SynchroPlay.btnWait_Click(); });
    EXPECT_EQ(TonesOfOneDisabledAt(1500),
              "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n2.0000 speaker 440 Hz 450 ms\n");
}

TEST_F(MetronomeTest, StoppingTheWaitEnablesTheButton) {
    P.App.Playing.SynchroPlay.txtHour.Type("13");
    P.Time.At(100, [this] { P.App.Playing.SynchroPlay.btnWait_Click(); });
    P.App.Playing.SynchroPlay.btnWait_Click();
    EXPECT_TRUE(P.App.Playing.Metronome.MetronomeButtonEnabled);
}

TEST_F(MetronomeTest, PlayingLogsThatItIsOff) {
    P.SetSong({"1/16 - - -"});
    P.App.Playing.PlaybackEngine.OnRangeEnd = [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    P.Time.At(100, [this] {
        P.App.Log.Enable();
        P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    });
    P.App.Playing.Metronome.MetronomeButton_Click();
    EXPECT_TRUE(
        P.LogText().starts_with("    PlayMusic() - START\n    Metronome is OFF\n"
                                "        BeforePlayMusic() - START\n"))
        << P.LogText();
}

TEST_F(MetronomeTest, OnAMutedSpeakerAClickOnTheButtonIsHeardInTheMiddleOfATone) {
    Fields.Output.MutePCSpeaker = true;
    ClickUntil(510);
    EXPECT_EQ(P.Time.Now(), 520 * SimulatedTime::CountsPerMs);
}

TEST_F(MetronomeTest, OverMidiItClicksB5AndB4) {
    P.OpenMidiOut();
    ClickUntil(600);
    EXPECT_EQ(P.Timeline.Text("midi"),
              "0.0000 midi out 90 47 60\n0.0200 midi out 80 47 00\n0.5000 midi out 90 3B 60\n"
              "0.5200 midi out 80 3B 00\n");
}

TEST_F(MetronomeTest, ATempoOfZeroIsAnErrorAndLeavesItOff) {
    Fields.Song.BPM.Set(0);
    EXPECT_FALSE(P.App.Handlers.Run("MetronomeButton_Click",
                                    [this] { P.App.Playing.Metronome.MetronomeButton_Click(); }));
    EXPECT_FALSE(P.App.Playing.Metronome.MetronomeIsOn);
    EXPECT_FALSE(Fields.View.BeepTextLabelVisible);
    EXPECT_EQ(P.Boxes.Shown().back().Text, "Run-time error '11':\n\nDivision by zero");
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
}

TEST_F(MetronomeTest, ATempoWithoutWaitsStillRunsHandlers) {
    Fields.Song.BPM.Set(100'000);
    ClickUntil(1000);
    EXPECT_LE(P.Time.Now(), 1020 * SimulatedTime::CountsPerMs);
}

TEST_F(MetronomeTest, ClosingTheProgramEndsIt) {
    SimulatedProcesses system;
    bool ended = false;
    DesktopProgram desktop(
        P.App,
        {.System = system, .EndProcess = [&] { ended = true; }, .StateFolder = "/state", .CommandLine = {}});
    P.Time.At(700, [&] { desktop.CloseProgram(); });
    P.App.Playing.Metronome.MetronomeButton_Click();
    EXPECT_TRUE(ended);
    EXPECT_EQ(P.Time.Now(), 700 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(Tones(), "0.0000 speaker 1000 Hz 20 ms\n0.5000 speaker 500 Hz 20 ms\n");
}

}  // namespace
}  // namespace quavix
