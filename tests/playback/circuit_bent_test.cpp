// SPDX-License-Identifier: MIT
#include "playback/circuit_bent.h"

#include <gtest/gtest.h>

#include "midi/midi_notes.h"
#include "music/notes.h"
#include "shell/numbers.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

/// The same number again and again.
class FixedNumber : public RandomNumbers {
  public:
    double Next() override { return Value; }
    double Value = 0;
};

class CircuitBentTest : public testing::Test {
  protected:
    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
};

/// Returns the next numbers of the same seed as MIDI notes.
std::vector<std::int32_t> ExpectedNotes(std::size_t count) {
    SeededRandomNumbers same(0);
    std::vector<std::int32_t> notes;
    while (notes.size() < count)
        notes.push_back(ToInt32(same.Next() * 127));
    return notes;
}

TEST_F(CircuitBentTest, PlaysFifteenRandomNotesPerBurstAndTheNextBurstAtOnce) {
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(30);  // the second burst is due before the first one has ended
    std::string expected;
    int ms = 15;
    for (const std::int32_t midi : ExpectedNotes(30)) {
        const std::string note = MIDIToNoteString(midi);
        const double hertz = NoteFrequency(FindNoteNum(note), OctaveOf(note));
        expected += fmt::format("0.{:03}0 speaker {} Hz 15 ms\n", ms, ToInt32(hertz));
        ms += 15;
    }
    EXPECT_EQ(P.Timeline.Text(), expected);
}

TEST_F(CircuitBentTest, IsSilentUntilTickedAndAfterwards) {
    P.Time.RunUntil(1000);
    EXPECT_EQ(P.Timeline.Text(), "");
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(1100);
    Fields.Mods.UseCircuitBent.Ticked = false;
    P.Timeline.Clear();
    P.Time.RunUntil(2000);
    EXPECT_EQ(P.Timeline.Text(), "");
}

TEST_F(CircuitBentTest, TheNumbersReachFromTheLowestNoteToTheHighest) {
    FixedNumber number;
    MainFields fields;
    CircuitBent bending(fields.Mods, fields.State, P.App.Outputs.ToneDispatcher, number, P.Time,
                        P.App.Handlers, P.App.Log);
    P.App.Outputs.ToneCode.UseWriteCode = true;
    const auto note = [&](double value) {
        number.Value = value;
        fields.Mods.UseCircuitBent.Ticked = true;
        P.Time.RunUntil(static_cast<double>(P.Time.Now()) / SimulatedTime::CountsPerMs + 20);
        fields.Mods.UseCircuitBent.Ticked = false;
        const std::string code = P.Disk.Content("/program/tonecode.txt");
        return code.substr(code.rfind('\'') + 1);
    };
    EXPECT_EQ(note(0), "C0\r\n");
    EXPECT_EQ(note(0.5), "E5\r\n") << "63.5 goes to the even number, 64";
    EXPECT_EQ(note(0.999999), "G10\r\n");
}

TEST_F(CircuitBentTest, OverMidiABurstIsFifteenPairsOfNoteOnAndNoteOff) {
    P.OpenMidiOut();
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(20);
    std::string expected;
    int ms = 15;
    for (const std::int32_t midi : ExpectedNotes(15)) {
        // Of an octave with two digits, only the last one counts.
        const std::int32_t sent = midi < 120 ? midi : midi - 120;
        expected += fmt::format("0.{:03}0 midi out 90 {:02X} 60\n0.{:03}0 midi out 80 {:02X} 00\n", ms, sent,
                                ms + 15, sent);
        ms += 15;
    }
    EXPECT_EQ(P.Timeline.Text("midi"), expected);
}

TEST_F(CircuitBentTest, BurstsDoNotNestOnAMutedSpeaker) {
    Fields.Output.MutePCSpeaker = true;
    P.App.Outputs.ToneCode.UseWriteCode = true;
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(239);
    const std::string code = P.Disk.Content("/program/tonecode.txt");
    EXPECT_EQ(std::count(code.begin(), code.end(), '\''), 30) << "each after the other, in 450 ms";
    EXPECT_EQ(P.Time.Now(), 465 * SimulatedTime::CountsPerMs);
}

TEST_F(CircuitBentTest, UntickingInTheMiddleOfABurstStopsIt) {
    Fields.Output.MutePCSpeaker = true;
    P.App.Outputs.ToneCode.UseWriteCode = true;
    P.Time.At(40, [this] { Fields.Mods.UseCircuitBent.Ticked = false; });
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(1000);
    const std::string code = P.Disk.Content("/program/tonecode.txt");
    EXPECT_EQ(std::count(code.begin(), code.end(), '\''), 2);
}

TEST_F(CircuitBentTest, AnErrorIsShownOnceAndEndsTheMode) {
    P.App.Outputs.ToneCode.UseWriteCode = true;
    P.Disk.FailWriting("/program/tonecode.txt", std::errc::no_space_on_device);
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(1000);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_FALSE(Fields.Mods.UseCircuitBent.Ticked);
    EXPECT_FALSE(Fields.Mods.UseCircuitBent.InUse);
}

TEST_F(CircuitBentTest, ClosingTheProgramEndsTheBurst) {
    Fields.Output.MutePCSpeaker = true;
    P.App.Outputs.ToneCode.UseWriteCode = true;
    P.Time.At(40, [this] { Fields.State.ShuttingDown = true; });
    Fields.Mods.UseCircuitBent.Ticked = true;
    P.Time.RunUntil(1000);
    const std::string code = P.Disk.Content("/program/tonecode.txt");
    EXPECT_EQ(std::count(code.begin(), code.end(), '\''), 2);
}

TEST_F(CircuitBentTest, LogsItsSwitch) {
    P.App.Log.Enable();
    Fields.Mods.UseCircuitBent.Ticked = true;
    Fields.Mods.UseCircuitBent.Ticked = false;
    EXPECT_EQ(P.LogText(),
              "UseCircuitBentCheck clicked - UseCircuitBent -> TRUE\n"
              "UseCircuitBentCheck clicked - UseCircuitBent -> FALSE\n");
}

}  // namespace
}  // namespace quavix
