// SPDX-License-Identifier: MIT
#include "playback/tone_dispatcher.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/recorded_playback.h"

namespace quavix {
namespace {

class UniBeepTest : public testing::Test {
  protected:
    /// Sounds a tone and returns the note string as it comes back.
    std::string Beep(std::string note, double duration, const ToneOptions& options = {}) {
        Recorded.Tones.UniBeep(note, duration, options);
        return note;
    }
    std::string ToneCode() const { return P.Disk.Content("/program/tonecode.txt"); }

    test::SimulatedProgram P;
    test::RecordedPlayback Recorded{P};
    MainFields& Fields = P.App.Fields;
};

constexpr ToneOptions Frequency{.NoteIsFrequency = true};

TEST_F(UniBeepTest, ANoteSoundsOnThePcSpeakerInWholeHertz) {
    Beep("C4", 500);
    Beep("A#5", 20);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 speaker 262 Hz 500 ms\n0.5000 speaker 932 Hz 20 ms\n");
}

TEST_F(UniBeepTest, AnEmptyNoteStringBecomesC4ForTheCallerToo) {
    P.App.Log.Enable();
    EXPECT_EQ(Beep("", 100), "C4");
    EXPECT_EQ(P.Timeline.Text(), "0.0000 speaker 262 Hz 100 ms\n");
    EXPECT_NE(P.LogText().find("    NoteString not set - setting to C4\n"), std::string::npos);
}

TEST_F(UniBeepTest, LogsItsArgumentsAndTheSpeakersCall) {
    P.App.Log.Enable();
    Beep("C#3", 12.5, {.SpecificContinuous = true});
    EXPECT_EQ(
        P.LogText(),
        "    UniBeep(NOTESTRING:\"C#3\", DURATION:12.5, NOTEISFREQUENCY:FALSE, SPECIFICCONTINUOUS:TRUE, "
        "SPECIFICSTOP:FALSE, FMODNOWAIT:FALSE) - START\n"
        "    PC Speaker Beep 139, 12.5 - BEFORE\n"
        "    PC Speaker Beep - AFTER\n"
        "    UniBeep() - END\n\n");
}

TEST_F(UniBeepTest, DurationsAndFrequenciesAreRoundedHalvesToEven) {
    Beep("162.5", 14.5, Frequency);
    Beep("105.625", 15.5, Frequency);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 speaker 162 Hz 14 ms\n0.0140 speaker 106 Hz 16 ms\n");
}

TEST_F(UniBeepTest, ADurationOrFrequencyOutside32BitsIsAnOverflow) {
    EXPECT_THROW(Beep("C4", 3e9), RuntimeError);
    EXPECT_THROW(Beep("3000000000", 10, Frequency), RuntimeError);
}

TEST_F(UniBeepTest, AnUnknownNoteWarnsAndSoundsZeroHertz) {
    Beep("H4", 10);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.0000 speaker 0 Hz 10 ms\n");
}

TEST_F(UniBeepTest, ALastCharacterThatIsNoDigitIsOctaveZero) {
    Beep("A", 10);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 speaker 28 Hz 10 ms\n") << "27.5 Hz";
}

TEST_F(UniBeepTest, TheMotorComesBeforeEveryOtherOutput) {
    Fields.Mods.UseMotor.Ticked = true;
    Fields.Mods.UseFMOD.InUse = Fields.Output.MutePCSpeaker = Fields.Mods.UsePorta.InUse = true;
    Beep("C4", 200);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P1350\\r\n0.2150 serial #0P1470\\r\n");
}

TEST_F(UniBeepTest, TheMotorGetsTheNoteMovedByItsOctave) {
    Fields.Mods.UseMotor.Ticked = true;
    Fields.Song.NoteSilenceRatio.Set(100);
    Fields.Output.MotorOct = 1;
    Beep("F4", 10);
    Beep("F#4", 10);
    EXPECT_EQ(P.Timeline.Text("serial #"), "0.0000 serial #0P1000\\r\n0.0250 serial #0P1191\\r\n");
}

TEST_F(UniBeepTest, ABareFrequencyOnTheMotorShowsNoWarning) {
    Fields.Mods.UseMotor.Ticked = true;
    Beep("1000", 20, Frequency);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 serial open ttyUSB0\n0.0000 serial #0P0\\r\n0.0350 serial #0P1470\\r\n");
    EXPECT_TRUE(P.Boxes.Shown().empty());
    Beep("H4", 20);
    EXPECT_FALSE(P.Boxes.Shown().empty()) << "a name that is none";
}

TEST_F(UniBeepTest, TheSoundCardComesBeforeTheMutedSpeakerAndWaitsOnce) {
    Fields.Mods.UseFMOD.InUse = Fields.Output.MutePCSpeaker = Fields.Mods.UsePorta.InUse = true;
    Beep("A4", 100, {.FMODNoWait = true});
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod FMOD_Channel_SetFrequency(null, 5277.888)\n"
              "0.0000 fmod FMOD_Channel_SetPaused(null, 0)\n"
              "0.0000 fmod FMOD_Channel_SetPaused(null, 1)\n");
    EXPECT_EQ(P.Time.Now(), 0);
}

TEST_F(UniBeepTest, TheMutedSpeakerComesBeforeThePortamento) {
    Fields.Output.MutePCSpeaker = Fields.Mods.UsePorta.InUse = true;
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text(), "");
    EXPECT_EQ(P.Time.Now(), 100 * SimulatedTime::CountsPerMs);
}

TEST_F(UniBeepTest, ThePortamentoGetsThePitchWithoutAWait) {
    Fields.Mods.UsePorta.InUse = true;
    P.App.Log.Enable();
    std::string note = "A4";
    P.App.Outputs.ToneDispatcher.UniBeep(note, 100);
    EXPECT_EQ(P.Time.Now(), 0);
    EXPECT_NE(P.LogText().find("    PC Speaker - Tweeble Portamento - WantedPitch -> 440\n"),
              std::string::npos);
    P.Time.RunUntil(20);
    EXPECT_EQ(P.Timeline.Text(), "0.0150 speaker 440 Hz 30 ms\n");
}

TEST_F(UniBeepTest, TheSoundCardKeepsSoundingOnlyWithoutAStopRequest) {
    Fields.Mods.UseFMOD.InUse = true;
    const auto keeps = [this](const char* note, const ToneOptions& options) {
        P.Timeline.Clear();
        Beep(note, 10, options);
        return P.Timeline.Text().find("SetPaused(null, 1)") == std::string::npos;
    };
    EXPECT_FALSE(keeps("C4", {}));
    EXPECT_TRUE(keeps("C4", {.SpecificContinuous = true}));
    EXPECT_FALSE(keeps("C4", {.SpecificContinuous = true, .SpecificStop = true}));
    EXPECT_FALSE(keeps("500", {.NoteIsFrequency = true, .SpecificContinuous = true}));
    Fields.Output.DoNotShutUpFMOD = true;
    EXPECT_TRUE(keeps("C4", {}));
    EXPECT_FALSE(keeps("C4", {.SpecificStop = true}));
    EXPECT_FALSE(keeps("500", Frequency));
}

TEST_F(UniBeepTest, OptionsOfTheSoundCardDoNotChangeOtherOutputs) {
    Beep("C4", 30, {.SpecificContinuous = true, .FMODNoWait = true});
    EXPECT_EQ(P.Time.Now(), 30 * SimulatedTime::CountsPerMs);
    Fields.Output.MutePCSpeaker = true;
    Beep("C4", 30, {.SpecificContinuous = true, .FMODNoWait = true});
    EXPECT_EQ(P.Time.Now(), 60 * SimulatedTime::CountsPerMs);
}

TEST_F(UniBeepTest, MidiNoteOnAndOffStandAroundTheTone) {
    P.OpenMidiOut();
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 midi out 90 39 60\n0.0000 speaker 440 Hz 100 ms\n0.1000 midi out 80 39 00\n");
}

TEST_F(UniBeepTest, OverMidiTheMetronomesClicksAreB5AndB4AndAnyOtherFrequencyC3) {
    P.OpenMidiOut();
    for (const char* frequency : {"1000", "500", "440"})
        Beep(frequency, 20, Frequency);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 midi out 90 47 60\n0.0000 speaker 1000 Hz 20 ms\n0.0200 midi out 80 47 00\n"
              "0.0200 midi out 90 3B 60\n0.0200 speaker 500 Hz 20 ms\n0.0400 midi out 80 3B 00\n"
              "0.0400 midi out 90 24 60\n0.0400 speaker 440 Hz 20 ms\n0.0600 midi out 80 24 00\n");
}

TEST_F(UniBeepTest, MidiSwitchedOnWhileAToneSoundsSendsNoNoteOff) {
    Fields.Output.MutePCSpeaker = true;
    P.Time.At(50, [&] { P.OpenMidiOut(); });
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text("midi"), "");
}

TEST_F(UniBeepTest, MidiSwitchedOffWhileAToneSoundsSendsNoNoteOffEither) {
    Fields.Output.MutePCSpeaker = true;
    P.OpenMidiOut();
    P.Time.At(50, [&] { Fields.Mods.UseMIDIOut.InUse = false; });
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text("midi"), "0.0000 midi out 90 39 60\n");
}

TEST_F(UniBeepTest, AnErrorLeavesNoMidiNoteHanging) {
    P.OpenMidiOut();
    EXPECT_THROW(Beep("A4", 3e9), RuntimeError);
    EXPECT_EQ(P.Timeline.Text("midi"), "0.0000 midi out 90 39 60\n0.0000 midi out 80 39 00\n");
}

TEST_F(UniBeepTest, LogsTheMidiSectionIndented) {
    Fields.Mods.UseMIDIOut.InUse = true;
    P.App.Log.Enable();
    Beep("A4", 10);
    EXPECT_NE(
        P.LogText().find(
            "        UseMIDIOut section 1 START\n        MIDINoteOn(57)\n        UseMIDIOut section 1 END\n\n"),
        std::string::npos);
}

TEST_F(UniBeepTest, ToneCodeHasOneStatementPerTone) {
    P.App.Outputs.ToneCode.UseWriteCode = true;
    Beep("C4", 500);
    Beep("12000", 20, Frequency);
    Beep("100000", 1234567, Frequency);
    EXPECT_EQ(ToneCode(),
              "Beep         262,    500     'C4\r\n"
              "Beep       12000,     20     '12000 Hz [no note]\r\n"
              "Beep       100000, 1234567     '100000 Hz [no note]\r\n");
}

TEST_F(UniBeepTest, MutedToneCodeHasTheToneAndThenTheWait) {
    P.App.Outputs.ToneCode.UseWriteCode = Fields.Output.MutePCSpeaker = true;
    P.App.Log.Enable();
    Beep("A4", 99.6);
    EXPECT_EQ(ToneCode(),
              "Beep         440,   99.6     'A4\r\n"
              "MsgWaitObj           100\r\n");
    EXPECT_NE(P.LogText().find("    MsgWaitObj 100\n"), std::string::npos);
}

TEST_F(UniBeepTest, AMutedToneOfNegativeLengthReturnsAtOnce) {
    Fields.Output.MutePCSpeaker = true;
    Beep("A4", -1);
    Beep("A4", -500);
    EXPECT_EQ(P.Time.Now(), 0);
}

TEST_F(UniBeepTest, ToneCodeIsWrittenBeforeTheToneWhateverTheOutput) {
    P.App.Outputs.ToneCode.UseWriteCode = Fields.Mods.UseFMOD.InUse = true;
    std::string codeDuringTone;
    P.Time.At(5, [&] { codeDuringTone = ToneCode(); });
    Beep("A4", 10);
    EXPECT_EQ(codeDuringTone, "Beep         440,     10     'A4\r\n");
}

TEST_F(UniBeepTest, WithoutTheSwitchNoToneCodeIsWritten) {
    Beep("C4", 10);
    EXPECT_FALSE(P.Disk.Has("/program/tonecode.txt"));
}

TEST_F(UniBeepTest, AToneCodeFileThatCannotBeWrittenIsAnErrorBeforeTheTone) {
    P.App.Outputs.ToneCode.UseWriteCode = true;
    P.Disk.FailWriting("/program/tonecode.txt", std::errc::no_space_on_device);
    EXPECT_THROW(Beep("C4", 10), RuntimeError);
    EXPECT_EQ(P.Timeline.Text("speaker"), "");
}

TEST_F(UniBeepTest, MuteTakesEffectWithTheNextTone) {
    P.App.Log.Enable();
    Fields.Output.MuteTweebleCheck = true;
    P.App.Outputs.ToneDispatcher.MuteTweebleCheck_Click();
    EXPECT_TRUE(Fields.Output.MutePCSpeaker);
    Fields.Output.MuteTweebleCheck = false;
    P.App.Outputs.ToneDispatcher.MuteTweebleCheck_Click();
    EXPECT_FALSE(Fields.Output.MutePCSpeaker);
    EXPECT_EQ(P.LogText(),
              "MuteTweeble clicked - MutePCSpeaker -> TRUE\nMuteTweeble clicked - MutePCSpeaker -> FALSE\n");
}

}  // namespace
}  // namespace quavix
