// SPDX-License-Identifier: MIT
#include "music/tone.h"

#include <gtest/gtest.h>

#include "music/notes.h"

namespace quavix {
namespace {

TEST(Tone, ANoteIsTheSameFromItsTextAndFromItsNumbers) {
    for (std::int32_t octave = 0; octave <= 12; ++octave) {
        for (std::int32_t noteNum = 0; noteNum < 12; ++noteNum) {
            const Tone tone = Tone::OfNote(noteNum, octave, 20);
            const Tone read = Tone::OfText(NoteNumToNoteString(noteNum, octave, true, 0), 20);
            EXPECT_EQ(tone.Text, read.Text);
            EXPECT_EQ(tone.NoteNum, read.NoteNum) << tone.Text;
            EXPECT_EQ(tone.Octave, read.Octave) << tone.Text;
            EXPECT_EQ(tone.Frequency, read.Frequency) << tone.Text;
            EXPECT_EQ(tone.DurationMs, 20);
        }
    }
}

TEST(Tone, TheLastDigitOfAnOctaveOfTwoDigitsCounts) {
    const Tone tone = Tone::OfNote(7, 10, 20);
    EXPECT_EQ(tone.Text, "G10");
    EXPECT_EQ(tone.Octave, 0);
    EXPECT_EQ(tone.Frequency, 24.5);
}

TEST(Tone, AFrequencyIsTheSameFromItsTextAndFromItsNumber) {
    const Tone read = Tone::OfText("162.5", 15, {.NoteIsFrequency = true});
    const Tone tone = Tone::OfFrequency(162.5, 15);
    EXPECT_EQ(read.Frequency, 162.5);
    EXPECT_EQ(tone.Text, read.Text);
    EXPECT_EQ(tone.Frequency, read.Frequency);
    EXPECT_EQ(tone.WholeFrequency(), 162) << "halves go to the even number";
    EXPECT_TRUE(tone.Options.NoteIsFrequency);
    EXPECT_EQ(tone.NoteNum, -1);
}

}  // namespace
}  // namespace quavix
