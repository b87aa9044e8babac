// SPDX-License-Identifier: MIT
#include "music/notes.h"

#include <gtest/gtest.h>

#include "music/lengths.h"
#include "shell/runtime_error.h"
#include "simulation/simulated_dialogs.h"

namespace quavix {
namespace {

class NotesTest : public testing::Test {
  protected:
    Timeline Events;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Events};
};

TEST_F(NotesTest, ANoteStringsNameGivesItsNumber) {
    const char* names[] = {"C4", "C#4", "D4", "D#4", "E4", "F4", "F#4", "G4", "G#4", "A4", "A#4", "B9"};
    for (std::int16_t i = 0; i < 12; ++i)
        EXPECT_EQ(LetterToNoteNum(names[i], Boxes), i) << names[i];
    EXPECT_EQ(LetterToNoteNum("C", Boxes), 0);
    EXPECT_EQ(LetterToNoteNum("C#", Boxes), 1);
    EXPECT_EQ(LetterToNoteNum("E#4", Boxes), 4) << "only five names have a sharp";
    EXPECT_TRUE(Boxes.Shown().empty());
}

TEST_F(NotesTest, AnUnknownNameWarnsAndGivesMinusOne) {
    EXPECT_EQ(LetterToNoteNum("H4", Boxes), -1);
    ASSERT_EQ(Boxes.Shown().size(), 1U);
    EXPECT_EQ(Boxes.Shown()[0].Title, "LetterToNoteNum function");
    EXPECT_EQ(Boxes.Shown()[0].Icon, BoxIcon::Warning);
    EXPECT_EQ(Boxes.Shown()[0].Buttons, BoxButtons::Ok);
    EXPECT_EQ(Boxes.Shown()[0].Text,
              "LetterAndOctave is *H4*\nThe first 1 or 2 characters aren't a recognized note name.\n"
              "(Returning -1 as the note number - this may cause errors!)");
    EXPECT_EQ(LetterToNoteNum("c4", Boxes), -1) << "letter case counts";
    EXPECT_EQ(LetterToNoteNum("", Boxes), -1);
    EXPECT_EQ(Boxes.Shown().size(), 3U);
}

TEST_F(NotesTest, AFrequencyIsTheWholeHertzOfOctaveSevenHalvedOrDoubled) {
    EXPECT_EQ(NoteFrequency(9, 4), 440);
    EXPECT_EQ(NoteFrequency(0, 7), 2093);
    EXPECT_EQ(NoteFrequency(1, 7), 2217);
    EXPECT_EQ(NoteFrequency(1, 4), 277.125);
    EXPECT_EQ(NoteFrequency(5, 6), 1397);
    EXPECT_EQ(NoteFrequency(9, 8), 7040);
    EXPECT_EQ(NoteFrequency(0, 4), 261.625);
    EXPECT_EQ(NoteFrequency(0, 0), 16.3515625);
    EXPECT_EQ(NoteFrequency(11, 9), 15804);
    const double octave7[] = {2093, 2217, 2349, 2489, 2637, 2794, 2960, 3136, 3322, 3520, 3729, 3951};
    for (std::int32_t i = 0; i < 12; ++i)
        EXPECT_EQ(NoteFrequency(i, 7), octave7[i]);
}

TEST_F(NotesTest, ANumberThatIsNoNoteHasNoFrequency) {
    EXPECT_EQ(NoteFrequency(12, 4), 0);
    EXPECT_EQ(NoteFrequency(-1, 4), 0);
    EXPECT_EQ(NoteFrequency(-1, 9), 0);
}

TEST_F(NotesTest, OctavesTooFarAwayAreAnOverflow) {
    EXPECT_THROW(NoteFrequency(0, 263), RuntimeError);
    EXPECT_THROW(NoteFrequency(0, -249), RuntimeError);
    EXPECT_THROW(NoteFrequency(0, 40), RuntimeError) << "more than 32 bits";
    EXPECT_GT(NoteFrequency(0, -248), 0);
}

TEST_F(NotesTest, NumbersGiveNames) {
    EXPECT_EQ(NoteNumToLetter(-1), "-");
    EXPECT_EQ(NoteNumToLetter(0), "C");
    EXPECT_EQ(NoteNumToLetter(10), "A#");
    EXPECT_EQ(NoteNumToLetter(12), "");
    EXPECT_EQ(NoteNumToLetter(-2), "");
}

TEST_F(NotesTest, OnlyTheLastCharacterIsTheOctave) {
    EXPECT_EQ(OctaveOf("C#3"), 3);
    EXPECT_EQ(OctaveOf("C10"), 0);
    EXPECT_EQ(LetterToNoteNum("C10", Boxes), 0);
    EXPECT_EQ(OctaveOf("CX"), 0);
    EXPECT_EQ(OctaveOf(""), 0);
}

TEST_F(NotesTest, ANoteStringKeepsItsOctaveWhereTheMotorDoesNotMatter) {
    EXPECT_EQ(NoteNumToNoteString(0, 4, true, 3), "C4");
    EXPECT_EQ(NoteNumToNoteString(0, 10, true, 3), "C10");
}

TEST_F(NotesTest, ForTheMotorTheOctaveMovesTowardsItsRange) {
    EXPECT_EQ(NoteNumToNoteString(0, 4, false, 3), "C1");
    EXPECT_EQ(NoteNumToNoteString(0, 2, false, 3), "C1");
    EXPECT_EQ(NoteNumToNoteString(0, 7, false, 3), "C3");
    EXPECT_EQ(NoteNumToNoteString(5, 6, false, 3), "F3");
    EXPECT_EQ(NoteNumToNoteString(6, 6, false, 3), "F#2");
    EXPECT_EQ(NoteNumToNoteString(7, 6, false, 3), "G2");
    EXPECT_EQ(NoteNumToNoteString(7, 7, false, 3), "G4") << "left as it is";
    EXPECT_EQ(NoteNumToNoteString(4, 9, false, 0), "E3");
}

TEST(Lengths, TheFiveChoicesHaveTheirTexts) {
    std::string lengths;
    for (std::int32_t choice = -1; choice <= 5; ++choice)
        lengths += std::string(GetLengthAsWritten(choice)) + "|";
    EXPECT_EQ(lengths, "|Whole|Half|Quarter|1/8|1/16||");
}

double EquivalentLength(const char* length, std::string mod) {
    return GetEquivalentLength(length, mod);
}

TEST(Lengths, LengthsAreInWholeNotesAndModsChangeThem) {
    EXPECT_EQ(EquivalentLength("Whole", ""), 1.0);
    EXPECT_EQ(EquivalentLength("1/16", ""), 0.0625);
    EXPECT_EQ(EquivalentLength("Quarter", "Dot"), 0.375);
    EXPECT_EQ(EquivalentLength("1/8", "Tri"), 0.125 * 0.333333333333333);
    EXPECT_EQ(EquivalentLength("1/8", "Tri"), 0.04166666666666662);
    EXPECT_NE(EquivalentLength("Whole", "Tri"), 1.0 / 3) << "fifteen digits, not a third";
    EXPECT_EQ(EquivalentLength("Half", "DOTTED"), 0.75);
    EXPECT_EQ(EquivalentLength("Quarter", "tRi"), 0.25 * 0.333333333333333);
    EXPECT_EQ(EquivalentLength("1/16", "dot tri"), 0.09375) << "dotted wins";
    EXPECT_EQ(EquivalentLength("1/16", "tri dot"), 0.09375);
    EXPECT_EQ(EquivalentLength("Half", "other"), 0.5);
}

TEST(Lengths, AnUnknownLengthIsNothing) {
    EXPECT_EQ(EquivalentLength("quarter", ""), 0);
    EXPECT_EQ(EquivalentLength("", "Dot"), 0);
}

TEST(Lengths, TheModTextComesBackInLowerCase) {
    std::string mod = "DoT Ä";
    GetEquivalentLength("Half", mod);
    EXPECT_EQ(mod, "dot Ä");
}

TEST(Lengths, ARemainderOfZeroMeansWhole) {
    EXPECT_TRUE(NoRemainder(3.0F));
    EXPECT_FALSE(NoRemainder(2.5F));
    EXPECT_TRUE(NoRemainder(-1.0F));
    EXPECT_FALSE(NoRemainder(-0.25F));
}

}  // namespace
}  // namespace quavix
