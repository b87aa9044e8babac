// SPDX-License-Identifier: MIT
#include "midi/midi_notes.h"

#include <limits>

#include <gtest/gtest.h>

#include "music/notes.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();

std::int32_t ErrorOf(std::int32_t noteNum, std::int32_t octaveNum) {
    try {
        NoteToMIDI(noteNum, octaveNum);
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

TEST(MidiNotes, AnOctaveHasTwelveNumbers) {
    EXPECT_EQ(NoteToMIDI(0, 0), 0);
    EXPECT_EQ(NoteToMIDI(0, 5), 60);
    EXPECT_EQ(NoteToMIDI(9, 4), 57) << "the speaker's 440 Hz is an octave lower on a synthesizer";
    EXPECT_EQ(NoteToMIDI(7, 10), 127);
}

TEST(MidiNotes, NumbersAreNotClampedToTheMidiRange) {
    EXPECT_EQ(NoteToMIDI(11, 10), 131);
    EXPECT_EQ(NoteToMIDI(-1, 0), -1);
    EXPECT_EQ(NoteToMIDI(0, -1), -12);
}

TEST(MidiNotes, AnOverflowIsRaised) {
    EXPECT_EQ(NoteToMIDI(7, 178956970), Highest);
    EXPECT_EQ(ErrorOf(8, 178956970), RuntimeError::Overflow);
    EXPECT_EQ(NoteToMIDI(-8, -178956970), Lowest);
    EXPECT_EQ(ErrorOf(-9, -178956970), RuntimeError::Overflow);
    EXPECT_EQ(ErrorOf(-12, 178956971), RuntimeError::Overflow) << "the product alone is too large";
    EXPECT_EQ(ErrorOf(0, Highest), RuntimeError::Overflow);
    EXPECT_EQ(ErrorOf(0, Lowest), RuntimeError::Overflow);
}

TEST(MidiNotes, ANumbersNoteStringHasItsOctave) {
    std::string notes;
    for (const std::int32_t number : {0, 11, 12, 60, 69, 70, 119, 120, 127, 131})
        notes += MIDIToNoteString(number) + " ";
    EXPECT_EQ(notes, "C0 B0 C1 C5 A5 A#5 B9 C10 G10 B10 ");
}

TEST(MidiNotes, NegativeNumbersRoundTheirOctaveTowardsZero) {
    EXPECT_EQ(MIDIToNoteString(-1), "-0");
    EXPECT_EQ(MIDIToNoteString(-2), "0");
    EXPECT_EQ(MIDIToNoteString(-12), "C-1");
    EXPECT_EQ(MIDIToNoteString(-13), "--1");
    EXPECT_EQ(MIDIToNoteString(Lowest), "-178956970");
    EXPECT_EQ(MIDIToNoteString(Highest), "G178956970");
}

TEST(MidiNotes, NumberAndNoteStringAreTheSameNote) {
    for (std::int32_t number = 0; number < 120; ++number) {
        const std::string note = MIDIToNoteString(number);
        EXPECT_EQ(NoteToMIDI(FindNoteNum(note), OctaveOf(note)), number) << note;
    }
    EXPECT_EQ(OctaveOf(MIDIToNoteString(127)), 0) << "note strings have one octave digit";
}

TEST(MidiNotes, InstrumentsHaveTheirNames) {
    EXPECT_EQ(MIDIInstrumentName(3), "Honkey-Tonk");
    EXPECT_EQ(MIDIInstrumentName(21), "Accordian");
    EXPECT_EQ(MIDIInstrumentName(44), "Tremelo Strings");
    EXPECT_EQ(MIDIInstrumentName(77), "Skakuhachi");
    std::string all;
    for (std::int32_t instrument = 0; instrument < 128; ++instrument)
        all += MIDIInstrumentName(instrument) + "\n";
    EXPECT_EQ(all.size(), 1724U);
    std::uint32_t sum = 0;
    for (const char c : all)
        sum = sum * 31 + static_cast<unsigned char>(c);
    EXPECT_EQ(sum, 1678989019U) << "some name has changed";
}

TEST(MidiNotes, OtherNumbersAreNoInstruments) {
    EXPECT_EQ(MIDIInstrumentName(-1), "");
    EXPECT_EQ(MIDIInstrumentName(128), "");
    EXPECT_EQ(MIDIInstrumentName(Highest), "");
}

TEST(MidiNotes, ListsCountInstrumentsFromOne) {
    EXPECT_EQ(MIDIInstrumentListText(0), "1 - Grand Piano");
    EXPECT_EQ(MIDIInstrumentListText(127), "128 - Gunshot");
}

}  // namespace
}  // namespace quavix
