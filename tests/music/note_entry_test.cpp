// SPDX-License-Identifier: MIT
#include "music/note_entry.h"

#include <gmock/gmock.h>

#include "support/selection.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;

struct NoteEntryTest : testing::Test, SimulatedProgram {
    /// Adds a note, and returns the log.
    std::string LogOf(std::int32_t noteNum, std::int32_t octave, std::int32_t lengthIndex) {
        App.Log.Enable();
        App.Editing.NoteEntry.AddNote(noteNum, octave, lengthIndex);
        return LogText();
    }
};

TEST_F(NoteEntryTest, WithoutASelectionALineIsAppended) {
    EXPECT_EQ(LogOf(0, 4, 3),
              "    AddNote(0, 4, 3 (1/8)) - START\n"
              "    NoteLetter = C\n"
              "    GetSelectedIndex(MainList) returned -1 - inserting at end of list.\n"
              "    InsertPoint = 1\n"
              "    Not possible to replace as-of-yet unmade note.\n"
              "    Replace = FALSE\n"
              "    INSERTING (creating list item)...\n"
              "    Setting note's text...\n"
              "    It's not meant to be silent - setting text for NOTE1.\n"
              "    AddNote() - END\n"
              "\n");
    EXPECT_EQ(SongText(), "1/8 C4 - -\n");
}

TEST_F(NoteEntryTest, ALineIsInsertedBeforeTheSelectedOneWhichStaysSelected) {
    SetSong({"Whole C4 - -", "Half D4 - -", "Quarter E4 - -"});
    App.List.Select(2);
    EXPECT_THAT(LogOf(10, 5, 0),
                HasSubstr("    NoteLetter = A#\n"
                          "    GetSelectedIndex(MainList) returned 2 - asking item to see if it's actually "
                          "selected.\n"
                          "    It is! Inserting here.\n"
                          "    InsertPoint = 2\n"
                          "    Replace = FALSE\n"));
    EXPECT_EQ(SongText(), "Whole C4 - -\nWhole A#5 - -\n> Half D4 - -\nQuarter E4 - -\n");
    App.Editing.NoteEntry.AddNote(11, 5, 0);
    EXPECT_EQ(SongText(), "Whole C4 - -\nWhole A#5 - -\nWhole B5 - -\n> Half D4 - -\nQuarter E4 - -\n")
        << "the next note follows the first one";
}

TEST_F(NoteEntryTest, AnItemThatHasLostItsHighlightIsNoInsertPoint) {
    SetSong({"Whole C4 - -", "Half D4 - -"});
    App.List.Select(1);
    App.List.UnselectAll();
    App.Fields.Entry.NoteReplaceCheck = true;
    EXPECT_THAT(LogOf(2, 4, 2), HasSubstr("    It's not - inserting at end of list.\n"
                                          "    InsertPoint = 3\n"
                                          "    Not possible to replace as-of-yet unmade note.\n"));
    EXPECT_EQ(SongText(), "* Whole C4 - -\nHalf D4 - -\nQuarter D4 - -\n");
}

TEST_F(NoteEntryTest, ReplacingWritesOneNoteAndGoesToTheNextLine) {
    SetSong({"Whole C4 - -", "Half D4 - Tri", "Quarter E4 - -"});
    App.Fields.Entry.NoteReplaceCheck = true;
    App.Fields.Entry.AddNote2Option = true;
    App.List.Select(2);
    EXPECT_THAT(
        LogOf(9, 4, 4),
        HasSubstr("    It's not meant to be silent - setting text for NOTE2.\n    AddNote() - END\n"));
    EXPECT_EQ(SongText(), "Whole C4 - -\nHalf D4 A4 Tri\n> Quarter E4 - -\n");
}

TEST_F(NoteEntryTest, ReplacingTheLastLineClearsTheSelectionAndTheNextNoteIsAppended) {
    SetSong({"Whole C4 - -", "Half D4 - -"});
    App.List.Select(2);
    App.Fields.Entry.NoteReplaceCheck = true;
    App.Editing.NoteEntry.AddNote(4, 4, 2);
    EXPECT_EQ(SongText(), "Whole C4 - -\n* Half E4 - -\n");
    EXPECT_FALSE(App.List.IsSelected(2));
    App.Editing.NoteEntry.AddNote(5, 4, 2);
    EXPECT_EQ(SongText(), "Whole C4 - -\n* Half E4 - -\nQuarter F4 - -\n");
}

TEST_F(NoteEntryTest, ReplacingTheLengthTooWritesLengthAndMod) {
    SetSong({"Whole C4 - Tri", "Half D4 - Dot", "Quarter E4 - -"});
    App.List.Select(1);
    App.Fields.Entry.NoteReplaceCheck = true;
    App.Fields.Entry.NoteLengthReplaceCheck = true;
    EXPECT_EQ(LogOf(1, 3, 2),
              "    AddNote(1, 3, 2 (Quarter)) - START\n"
              "    NoteLetter = C#\n"
              "    GetSelectedIndex(MainList) returned 1 - asking item to see if it's actually selected.\n"
              "    It is! Inserting here.\n"
              "    InsertPoint = 1\n"
              "    Possible to replace note, and replacing is wanted.\n"
              "    Replace = TRUE\n"
              "    REPLACING (doing nothing here)...\n"
              "    Setting note's text...\n"
              "    It's not meant to be silent - setting text for NOTE1.\n"
              "    Also changing main text (i.e. Length)...\n"
              "    Modifier: None\n"
              "    AddNote() - END\n"
              "\n");
    EXPECT_EQ(SongText(), "Quarter C#3 - -\n> Half D4 - Dot\nQuarter E4 - -\n");
}

TEST_F(NoteEntryTest, ANewLineTakesTheModOfTheBoxes) {
    App.Fields.Entry.ModDottedCheck = true;
    App.Editing.NoteEntry.AddNote(0, 4, 2);
    App.Fields.Entry.ModTripletCheck = true;
    App.Editing.NoteEntry.AddNote(0, 4, 2);
    App.Fields.Entry.ModTripletCheck = false;
    App.Editing.NoteEntry.AddNote(0, 4, 2);
    EXPECT_EQ(SongText(), "Quarter C4 - Dot\nQuarter C4 - Tri\nQuarter C4 - -\n");
}

TEST_F(NoteEntryTest, TheModWrittenWithTheLengthIsLogged) {
    App.Fields.Entry.NoteLengthReplaceCheck = true;
    App.Fields.Entry.ModDottedCheck = true;
    EXPECT_THAT(LogOf(-1, 0, 9), AllOf(HasSubstr("    AddNote(-1, 0, 9 ()) - START\n    NoteLetter = -\n"),
                                       HasSubstr("    It's meant to be silent.\n"
                                                 "    Also changing main text (i.e. Length)...\n"
                                                 "    Modifier: Dotted\n")));
    App.Fields.Entry.ModTripletCheck = true;
    App.Editing.NoteEntry.AddNote(-1, 0, 1);
    EXPECT_NE(LogText().find("    Modifier: Triplet\n"), std::string::npos);
    EXPECT_EQ(SongText(), " - - Dot\nHalf - - Tri\n");
}

TEST_F(NoteEntryTest, ANumberThatIsNoNoteIsEnteredAsAnError) {
    EXPECT_NE(LogOf(12, 4, 2).find("    NoteLetter = Err12-\n"), std::string::npos);
    App.Editing.NoteEntry.AddNote(-2, 4, 2);
    EXPECT_EQ(SongText(), "Quarter Err12-4 - -\nQuarter Err-2-4 - -\n");
}

TEST_F(NoteEntryTest, AnOctaveOfTwoDigitsIsWrittenAsItIs) {
    App.Editing.NoteEntry.AddNote(0, 10, 2);
    EXPECT_EQ(SongText(), "Quarter C10 - -\n");
}

TEST_F(NoteEntryTest, InsertingAmongSeveralSelectedLinesLeavesOneSelected) {
    SetSong({"Whole C4 - -", "Half D4 - -", "Quarter E4 - -"});
    SetSelection(App.List, 2, {1, 2, 3});
    App.Editing.NoteEntry.AddNote(0, 5, 2);
    EXPECT_EQ(SongText(), "Whole C4 - -\nQuarter C5 - -\n> Half D4 - -\nQuarter E4 - -\n");
}

TEST_F(NoteEntryTest, TheLogIsTheSameAtAnyDepth) {
    App.Log.Enable();
    App.Log.LogIndentInc("outer");
    App.Editing.NoteEntry.AddNote(0, 4, 3);
    EXPECT_EQ(App.Log.LogIndent(), 1);
}

/// Notes which rows are to be scrolled into view.
struct ScrollWatcher : MusicListObserver {
    explicit ScrollWatcher(MusicList& list) : List(list) { List.AddObserver(*this); }
    ~ScrollWatcher() override { List.RemoveObserver(*this); }
    void EnsureVisible(std::int32_t row) override { Rows += std::to_string(row) + " "; }
    MusicList& List;
    std::string Rows;
};

TEST_F(NoteEntryTest, TheNewLineAndTheOneThatIsSelectedNextAreScrolledIntoView) {
    SetSong({"Whole C4 - -", "Half D4 - -"});
    ScrollWatcher scrolls(App.List);
    App.Editing.NoteEntry.AddNote(0, 4, 0);
    EXPECT_EQ(scrolls.Rows, "3 ");
    App.List.Select(1);
    App.Editing.NoteEntry.AddNote(0, 4, 0);
    EXPECT_EQ(scrolls.Rows, "3 1 2 ");
}

TEST_F(NoteEntryTest, ReplacingTheLastOfSeveralSelectedLinesLeavesNoneHighlighted) {
    SetSong({"Whole C4 - -", "Half D4 - -"});
    App.Fields.Entry.NoteReplaceCheck = true;
    SetSelection(App.List, 2, {1, 2});
    App.Editing.NoteEntry.AddNote(9, 4, 0);
    EXPECT_EQ(SongText(), "Whole C4 - -\n* Half A4 - -\n");
}

}  // namespace
}  // namespace quavix::test
