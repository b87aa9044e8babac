// SPDX-License-Identifier: MIT
#include "playback/motor_mod_module.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class MotorTest : public testing::Test {
  protected:
    void SwitchOn() { Fields.Mods.UseMotor.Ticked = true; }
    void Beep(std::string note, double duration) { P.App.Outputs.ToneDispatcher.UniBeep(note, duration); }
    std::string Commands() const { return P.Timeline.Text("serial #"); }
    std::string LastBox() const { return P.Boxes.Shown().back().Text; }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    MotorModModule& Motor = P.App.Outputs.MotorModModule;
};

TEST_F(MotorTest, TheTableHoldsThirtyNotesAndTheBlankOne) {
    const char* const names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    const std::int32_t pulses[] = {1350, 1340, 1335, 1330, 1327, 1320, 1315, 1310, 1300, 1294,
                                   1283, 1275, 1260, 1250, 1238, 1230, 1217, 1203, 1191, 1178,
                                   1167, 1151, 1131, 1117, 1097, 1075, 1058, 1037, 1015, 1000};
    for (std::size_t i = 0; i < std::size(pulses); ++i)
        EXPECT_EQ(PulseOfNote(names[i % 12] + std::to_string(1 + i / 12)), pulses[i]) << i;
    EXPECT_EQ(PulseOfNote("-"), 1500);
}

TEST_F(MotorTest, AnyOtherNameIsPulseZero) {
    for (const char* name : {"", "F#3", "A3", "B3", "C0", "C4", "c1", "C1 ", " C1", "-1", "C"})
        EXPECT_EQ(PulseOfNote(name), 0) << name;
}

TEST_F(MotorTest, ANoteHoldsItsSpeedForItsTimeAndFifteenMsMoreAndThenStops) {
    SwitchOn();
    Motor.PlayNote("A2", 200);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1151\\r\n0.2150 serial #0P1470\\r\n");
}

TEST_F(MotorTest, TiedNotesAreNotStoppedBetween) {
    SwitchOn();
    Fields.Song.NoteSilenceRatio.Set(100);
    Motor.PlayNote("C1", 100);
    Motor.PlayNote("D1", 100);
    EXPECT_EQ(Commands(), "0.0000 serial #0P1350\\r\n0.1150 serial #0P1335\\r\n");
}

TEST_F(MotorTest, TheRatioCountsAtTheEndOfTheNote) {
    SwitchOn();
    P.Time.At(50, [&] { Fields.Song.NoteSilenceRatio.Set(100); });
    Motor.PlayNote("C1", 100);
    EXPECT_EQ(Commands(), "0.0000 serial #0P1350\\r\n");
}

TEST_F(MotorTest, AnUnknownNoteSendsPulseZero) {
    SwitchOn();
    Fields.Output.MotorOct = 0;
    Beep("A3", 10);  // moved to A2
    Beep("A5", 10);  // above octave 3, and left there
    EXPECT_EQ(Commands(),
              "0.0000 serial #0P1151\\r\n0.0250 serial #0P1470\\r\n0.0250 serial #0P0\\r\n"
              "0.0500 serial #0P1470\\r\n");
}

TEST_F(MotorTest, EveryOctaveOfTheSliderLowersTheNotesByAsMuch) {
    SwitchOn();
    Fields.Song.NoteSilenceRatio.Set(100);
    std::string pulses;
    for (std::int32_t octaves = 0; octaves <= 6; ++octaves) {
        Fields.Output.MotorOct = octaves;
        P.Timeline.Clear();
        Beep("C5", 0);
        pulses += P.Timeline.Lines().back().substr(7) + " ";
    }
    EXPECT_EQ(pulses,
              "serial #0P1097\\r serial #0P1097\\r serial #0P1097\\r serial #0P1260\\r "
              "serial #0P1350\\r serial #0P1350\\r serial #0P1350\\r ");
}

TEST_F(MotorTest, LogsWhatItDoes) {
    SwitchOn();
    P.App.Log.Enable();
    Motor.PlayNote("C2", 62.5);
    EXPECT_EQ(P.LogText(),
              "    MotorModModule.SetSpeed(PULSE:1260, WAITTIME:62.5) - START\n"
              "    MotorModModule.SendString(#0P1260)\n"
              "    MsgWaitObj 77.5\n"
              "    MotorModModule.SendString(#0P1470)\n"
              "    MotorModModule.SetSpeed() - END\n\n");
}

TEST_F(MotorTest, WhileItIsOffCommandsAreLoggedButNotSent) {
    P.App.Log.Enable();
    Motor.PlayNote("C2", 10);
    EXPECT_EQ(P.Timeline.Text(), "");
    EXPECT_NE(P.LogText().find("    MotorModModule.SendString(#0P1260)\n"), std::string::npos);
    EXPECT_EQ(P.Time.Now(), 25 * SimulatedTime::CountsPerMs);
}

TEST_F(MotorTest, TimesAreRoundedHalvesToEvenAndNeverWaitForEver) {
    Motor.SetSpeed(1000, 0.5);
    EXPECT_EQ(P.Time.Now(), 16 * SimulatedTime::CountsPerMs);
    Motor.SetSpeed(1000, -16);
    Motor.SetSpeed(1000, -500);
    EXPECT_EQ(P.Time.Now(), 16 * SimulatedTime::CountsPerMs);
}

TEST_F(MotorTest, ADurationOutOfRangeSendsNothing) {
    SwitchOn();
    EXPECT_THROW(Motor.SetSpeed(1000, 3e9), RuntimeError);
    EXPECT_EQ(Commands(), "");
}

TEST_F(MotorTest, AnErrorInTheMiddleOfANoteStopsTheMotor) {
    SwitchOn();
    P.Time.At(5, [] { throw std::runtime_error("in the middle"); });
    EXPECT_THROW(Motor.SetSpeed(1000, 100), std::runtime_error);
    EXPECT_EQ(Commands(), "0.0000 serial #0P1000\\r\n0.0050 serial #0P1470\\r\n");
}

TEST_F(MotorTest, TheCheckBoxOpensAndClosesThePort) {
    SwitchOn();
    EXPECT_TRUE(Fields.Mods.UseMotor.InUse);
    EXPECT_EQ(P.Comm.OpenName(), "ttyUSB0");
    Fields.Mods.UseMotor.Ticked = false;
    EXPECT_FALSE(Fields.Mods.UseMotor.InUse);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 serial open ttyUSB0\n0.0000 serial close\n");
}

TEST_F(MotorTest, ThePortIsLeftWithTheMotorStopped) {
    SwitchOn();
    Fields.Song.NoteSilenceRatio.Set(100);
    Motor.PlayNote("C1", 100);
    Fields.Mods.UseMotor.Ticked = false;
    EXPECT_EQ(P.Timeline.Text("serial"),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1350\\r\n0.1150 serial #0P1470\\r\n"
              "0.1150 serial close\n");
    Motor.Stop();
    EXPECT_EQ(P.Timeline.Lines().size(), 4u) << "once";
}

TEST_F(MotorTest, UntickingDuringANoteStopsTheMotorAndTheNotesTimeGoesOn) {
    SwitchOn();
    P.Time.At(50, [&] { Fields.Mods.UseMotor.Ticked = false; });
    Beep("C4", 200);
    EXPECT_EQ(P.Timeline.Text("serial"),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1350\\r\n0.0500 serial #0P1470\\r\n"
              "0.0500 serial close\n");
    EXPECT_EQ(P.Time.Now(), 215 * SimulatedTime::CountsPerMs);
}

TEST_F(MotorTest, TheLastWordsOfADyingProgramStopTheMotor) {
    SwitchOn();
    EXPECT_EQ(P.Comm.LastWords(), "#0P1470\r");
}

TEST_F(MotorTest, TheGeneratorsSpellingOfTheStopCommandIsSentUnchanged) {
    SwitchOn();
    Motor.SendString("#0p1470");
    EXPECT_EQ(Commands(), "0.0000 serial #0p1470\\r\n");
}

TEST_F(MotorTest, APortThatVanishesSwitchesTheMotorOffWithOneMessage) {
    SwitchOn();
    P.SetSong({"Quarter C4 - -", "Quarter D4 - -", "Quarter E4 - -"});
    P.Time.At(500, [&] { P.Comm.Pull(); });
    P.Time.At(1200, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_FALSE(Fields.Mods.UseMotor.InUse);
    EXPECT_FALSE(Fields.Mods.UseMotor.Ticked);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_NE(LastBox().find("the device is gone"), std::string::npos);
    EXPECT_EQ(P.Timeline.Text("serial"),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1350\\r\n0.4010 serial #0P1470\\r\n"
              "0.4310 serial #0P1335\\r\n0.5000 serial lost\n");
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.8590 speaker 330 Hz 384 ms\n") << "the next output";
}

TEST_F(MotorTest, APortFoundGoneAtAWriteShowsOneMessageAndSendsNothingMore) {
    SwitchOn();
    P.Comm.PullUnnoticed();
    Beep("C4", 100);
    Beep("C4", 100);
    EXPECT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Timeline.Text("serial"), "0.0000 serial open ttyUSB0\n0.0000 serial lost\n");
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.1150 speaker 262 Hz 100 ms\n");
}

TEST_F(MotorTest, WithoutAPortTheBoxIsUntickedWithAMessage) {
    P.Comm.Present = {};
    SwitchOn();
    EXPECT_FALSE(Fields.Mods.UseMotor.Ticked);
    EXPECT_FALSE(Fields.Mods.UseMotor.InUse);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_TRUE(LastBox().starts_with("No serial port can be seen."));
    EXPECT_EQ(P.Timeline.Text("serial"), "");
    P.Comm.Present = {"ttyACM0"};
    SwitchOn();
    EXPECT_EQ(P.Comm.OpenName(), "ttyACM0") << "connected meanwhile";
}

TEST_F(MotorTest, ABusyPortIsReportedAsBusy) {
    P.Comm.Busy = {"ttyUSB0"};
    SwitchOn();
    EXPECT_FALSE(Fields.Mods.UseMotor.Ticked);
    EXPECT_TRUE(
        LastBox().starts_with("The serial port ttyUSB0 can't be opened:\nin use by another program\n"));
}

TEST_F(MotorTest, StartUpTakesTheFirstPortThatIsFree) {
    P.Comm.Present = {"ttyUSB0", "ttyUSB1", "ttyS0"};
    P.Comm.Busy = {"ttyUSB0"};
    P.App.Log.Enable();
    Motor.CheckForPort();
    EXPECT_EQ(P.LogText(), "A com port exists\n");
    EXPECT_EQ(Motor.PortName.Get(), "ttyUSB1");
    EXPECT_TRUE(Fields.Mods.UseMotor.Enabled);
    EXPECT_EQ(P.Comm.OpenName(), "");
}

TEST_F(MotorTest, StartUpWithoutAFreePortDisablesTheCheckBoxWithoutAMessage) {
    P.Comm.Busy = {"ttyUSB0"};
    P.App.Log.Enable();
    Motor.CheckForPort();
    EXPECT_EQ(P.LogText(), "No (available) com port can be seen\n");
    EXPECT_FALSE(Fields.Mods.UseMotor.Enabled);
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(MotorTest, APortConnectedAfterTheStartMakesTheCheckBoxUsable) {
    P.Comm.Present = {};
    Motor.CheckForPort();
    Motor.FindPorts();
    EXPECT_FALSE(Fields.Mods.UseMotor.Enabled);
    P.Comm.Present = {"ttyUSB3"};
    Motor.FindPorts();
    EXPECT_TRUE(Fields.Mods.UseMotor.Enabled);
    EXPECT_EQ(Motor.PortName.Get(), "ttyUSB3");
}

TEST_F(MotorTest, ChangingThePortWhileItIsInUseChangesOver) {
    P.Comm.Present = {"ttyUSB0", "ttyUSB1"};
    SwitchOn();
    Fields.Song.NoteSilenceRatio.Set(100);
    Motor.PlayNote("C1", 10);
    P.Comm.Present = {"ttyUSB1", "ttyUSB0"};
    Motor.FindPorts();
    EXPECT_EQ(Motor.PortName.Get(), "ttyUSB0") << "the one in use stays chosen";
    Motor.PortName = "ttyUSB1";
    EXPECT_TRUE(Fields.Mods.UseMotor.InUse);
    EXPECT_EQ(P.Timeline.Text("serial"),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1350\\r\n0.0250 serial #0P1470\\r\n"
              "0.0250 serial close\n0.0250 serial open ttyUSB1\n");
}

TEST_F(MotorTest, ChangingToAPortThatFailsUnticksTheBox) {
    P.Comm.Present = {"ttyUSB0", "ttyUSB1"};
    P.Comm.Busy = {"ttyUSB1"};
    SwitchOn();
    Motor.PortName = "ttyUSB1";
    EXPECT_FALSE(Fields.Mods.UseMotor.Ticked);
    EXPECT_FALSE(Fields.Mods.UseMotor.InUse);
    EXPECT_EQ(P.Boxes.Shown().size(), 1u);
}

TEST_F(MotorTest, MidiNoteOnAndOffStandAroundTheMotorsNoteAsItIsWritten) {
    SwitchOn();
    P.OpenMidiOut();
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 midi out 90 39 60\n0.0000 serial #0P1294\\r\n"
              "0.1150 serial #0P1470\\r\n0.1150 midi out 80 39 00\n");
}

TEST_F(MotorTest, ComesBeforeMuteAndPortamentoAndWritesNoWaitingCode) {
    SwitchOn();
    Fields.Output.MutePCSpeaker = Fields.Mods.UsePorta.InUse = P.App.Outputs.ToneCode.UseWriteCode = true;
    Beep("C4", 100);
    P.Time.RunUntil(200);
    EXPECT_EQ(P.Timeline.Text("speaker"), "");
    EXPECT_EQ(P.Disk.Content("/program/tonecode.txt"), "Beep         262,    100     'C4\r\n");
    Fields.Mods.UseMotor.Ticked = false;
    Beep("C4", 100);
    EXPECT_EQ(P.Time.Now(), 300 * SimulatedTime::CountsPerMs) << "muted";
    Fields.Output.MutePCSpeaker = false;
    Beep("C4", 100);
    P.Time.RunUntil(400);
    EXPECT_NE(P.Timeline.Text("speaker"), "") << "the glide";
}

TEST_F(MotorTest, AlternatingNotesTakeTurnsOnTheMotorInTheirLongerTime) {
    SwitchOn();
    Fields.Song.BPM.Set(150);
    Fields.Song.AlternateTime.Set(85);
    Fields.Song.NoteSilenceRatio.Set(99);
    P.SetSong({"Quarter C4 C5 -"});
    P.Time.At(390, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(Commands(),
              "0.0000 serial #0P1350\\r\n0.1000 serial #0P1470\\r\n0.1000 serial #0P1260\\r\n"
              "0.2000 serial #0P1470\\r\n0.2000 serial #0P1350\\r\n0.3000 serial #0P1470\\r\n"
              "0.3000 serial #0P1260\\r\n0.4000 serial #0P1470\\r\n0.4000 serial #0p1470\\r\n");
}

TEST_F(MotorTest, TheEndOfPlaybackStopsAMotorOfTiedNotes) {
    SwitchOn();
    Fields.Song.NoteSilenceRatio.Set(100);
    P.SetSong({"Quarter C4 - -"});
    P.Time.At(100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(Commands(), "0.0000 serial #0P1350\\r\n0.4440 serial #0p1470\\r\n");
}

TEST_F(MotorTest, StoppingPlaybackIsHeardDuringANote) {
    SwitchOn();
    P.SetSong({"Whole C4 - -"});
    P.Time.At(100, [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
    EXPECT_TRUE(Fields.Mods.UseMotor.InUse);
}

}  // namespace
}  // namespace quavix
