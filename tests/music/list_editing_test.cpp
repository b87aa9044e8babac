// SPDX-License-Identifier: MIT
#include "music/list_editing.h"

#include <utility>

#include <gtest/gtest.h>

#include "support/selection.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

struct ListEditingTest : testing::Test, SimulatedProgram {
    ListEditingTest() { SetSong({"Whole C4 E4 Dot", "Half D4 F4 -", "Quarter E4 - Tri", "1/8 F4 - -"}); }

    /// Undoes so many steps, which has to be all, and returns the song.
    std::string SongAfterUndoing(int steps) {
        for (int i = 0; i < steps; ++i)
            App.Editing.EditHistory.Undo();
        EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
        return SongText();
    }

    const std::string Start = "Whole C4 E4 Dot\nHalf D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n";
};

TEST_F(ListEditingTest, ClearingANoteLeavesTheRestOfTheLine) {
    App.List.Select(1);
    App.Editing.ListEditing.ClearNote1Button_Click();
    EXPECT_EQ(App.List.Line(1), (MusicLine{"Whole", "", "E4", "Dot"}));
    App.Editing.ListEditing.ClearNote2Button_Click();
    EXPECT_EQ(App.List.Line(1), (MusicLine{"Whole", "", "", "Dot"})) << "a silent line";
    EXPECT_TRUE(App.List.IsSelected(1));
    EXPECT_EQ(App.List.Line(2), (MusicLine{"Half", "D4", "F4", ""}));
}

TEST_F(ListEditingTest, ErasingALineSelectsTheOneThatTakesItsPlace) {
    App.List.Select(2);
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Quarter E4 - Tri\n1/8 F4 - -\n");
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> 1/8 F4 - -\n");
}

TEST_F(ListEditingTest, ErasingTheLastLineLeavesNoSelection) {
    App.List.Select(4);
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(App.List.Count(), 3);
    EXPECT_EQ(App.List.SelectedItem(), -1);
    EXPECT_EQ(App.List.SelectedCount(), 0);
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(App.List.Count(), 3);
}

TEST_F(ListEditingTest, WithoutARealSelectionNothingIsChanged) {
    for (const bool lostHighlight : {false, true}) {
        if (lostHighlight) {
            App.List.Select(2);
            App.List.UnselectAll();
        }
        App.Editing.ListEditing.ClearNote1Button_Click();
        App.Editing.ListEditing.ClearNote2Button_Click();
        App.Editing.ListEditing.Command1_Click();
        App.Editing.ListEditing.UnselectButton_Click();
        App.Fields.Entry.ModDottedCheck = !lostHighlight;
        EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    }
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n* Half D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, TheBlankLineIsInsertedWithTheChosenLengthAndMod) {
    App.List.Select(2);
    App.Fields.Entry.NoteLengthCombo = 4;
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n1/16 - - -\n> Half D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, TheBlankLineReplacesOnlyLengthAndMod) {
    App.Fields.Entry.NoteReplaceCheck = true;
    App.Fields.Entry.NoteLengthReplaceCheck = true;
    App.Fields.Entry.ModTripletCheck = true;
    App.Fields.Entry.NoteLengthCombo = 0;
    App.List.Select(2);
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\nWhole D4 F4 Tri\n> Quarter E4 - Tri\n1/8 F4 - -\n");
    App.Fields.Entry.NoteLengthReplaceCheck = false;
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\nWhole D4 F4 Tri\nQuarter E4 - Tri\n> 1/8 F4 - -\n")
        << "without the length, the selection only moves on";
}

TEST_F(ListEditingTest, UnselectingLeavesTheItemAndShowsTheEndOfTheSong) {
    App.List.Select(2);
    App.Editing.ListEditing.UnselectButton_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n* Half D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "003");
    App.Editing.NoteEntry.AddNote(0, 4, 0);
    EXPECT_EQ(App.List.Line(5).Note1, "C4") << "the next note is appended";
}

TEST_F(ListEditingTest, DottedWhileTripletIsTickedLeavesDotted) {
    App.List.Select(3);
    App.Editing.DottedTripletBoxes.UpdateModButtons();
    ASSERT_TRUE(App.Fields.Entry.ModTripletCheck);
    App.Fields.Entry.ModDottedCheck = true;
    EXPECT_TRUE(App.Fields.Entry.ModDottedCheck);
    EXPECT_FALSE(App.Fields.Entry.ModTripletCheck);
    EXPECT_EQ(App.List.Line(3).Mod, "Dot");
}

TEST_F(ListEditingTest, ReplacingTheLengthIsAvailableWithReplacingNotesThatAreAdded) {
    const Watched<bool>& enabled = App.Fields.Entry.NoteLengthReplaceCheckEnabled;
    EXPECT_FALSE(enabled) << "as the program starts";
    const std::pair<bool, bool> steps[] = {{false, false}, {true, false}, {true, true},
                                           {false, true},  {true, true},  {true, false}};
    for (const auto& [add, replace] : steps) {
        App.Fields.Entry.NoteClickAddCheck = add;
        App.Fields.Entry.NoteReplaceCheck = replace;
        EXPECT_EQ(enabled, add && replace) << add << replace;
    }
}

TEST_F(ListEditingTest, ASongThatSwitchesNoteEntryOffGreysItsOptions) {
    App.Fields.Entry.NoteReplaceCheck = true;
    Disk.Put("song", "Quavix by Dastrel-204 file format\r\nNoteClickAdd 0\r\nMUSICLISTSTART\r\n");
    App.Storage.SongReader.ActuallyLoadMusic("song");
    EXPECT_FALSE(App.Fields.Entry.NoteLengthReplaceCheckEnabled);
}

TEST_F(ListEditingTest, OnlyOneOfTheTwoNoteColumnsIsChosen) {
    App.Fields.Entry.AddNote2Option = true;
    EXPECT_FALSE(App.Fields.Entry.AddNote1Option);
    App.Fields.Entry.AddNote1Option = true;
    EXPECT_FALSE(App.Fields.Entry.AddNote2Option);
    EXPECT_TRUE(App.Fields.Entry.AddNote1Option);
}

TEST_F(ListEditingTest, ErasingTheSoundingLineLetsPlaybackGoOn) {
    App.Fields.Output.MutePCSpeaker = true;
    App.Fields.Song.BPM.Set(600);
    Time.At(150, [this] { App.Editing.ListEditing.Command1_Click(); });
    App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(App.List.Count(), 3);
    App.Editing.EditHistory.Undo();
    std::string rows;
    for (std::int32_t row = 1; row <= App.List.Count(); ++row)
        rows += App.List.Line(row).Length + " ";
    EXPECT_EQ(rows, "Whole Half Quarter 1/8 ");
}

TEST_F(ListEditingTest, WithSeveralLinesSelectedEraseWholeLineErasesAllInOneStep) {
    SetSelection(App.List, 1, {1, 3});
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(SongText(), "Half D4 F4 -\n> 1/8 F4 - -\n");
    EXPECT_EQ(App.Editing.EditHistory.UndoText.Get(), "Undo Erase lines");
    EXPECT_EQ(SongAfterUndoing(1), "> Whole C4 E4 Dot\nHalf D4 F4 -\n> Quarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, WithSeveralLinesSelectedClearingMeansAllInOneStep) {
    SetSelection(App.List, 1, {1, 2});
    App.Editing.ListEditing.ClearNote1Button_Click();
    EXPECT_EQ(SongText(), "> Whole - E4 Dot\n> Half - F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
    App.Editing.ListEditing.ClearNote2Button_Click();
    EXPECT_EQ(SongText(), "> Whole - - Dot\n> Half - - -\nQuarter E4 - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(SongAfterUndoing(2), "> Whole C4 E4 Dot\n> Half D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, WithSeveralLinesSelectedTheModifierIsGivenToAllInOneStep) {
    SetSelection(App.List, 2, {2, 3});
    App.Fields.Entry.ModDottedCheck = true;
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 F4 Dot\n> Quarter E4 - Dot\n1/8 F4 - -\n");
    App.Fields.Entry.ModTripletCheck = true;
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 F4 Tri\n> Quarter E4 - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(SongAfterUndoing(2), "Whole C4 E4 Dot\n> Half D4 F4 -\n> Quarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, WithSeveralLinesSelectedABlankLineComesBeforeTheSelectedItemWhichAloneStaysSelected) {
    SetSelection(App.List, 2, {2, 3});
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n1/8 - - -\n> Half D4 F4 -\nQuarter E4 - Tri\n1/8 F4 - -\n");
}

TEST_F(ListEditingTest, UnselectingClearsEveryHighlight) {
    SetSelection(App.List, 2, {1, 2, 4});
    App.Editing.ListEditing.UnselectButton_Click();
    EXPECT_EQ(App.List.SelectedCount(), 0);
    EXPECT_EQ(App.List.SelectedItem(), 2);
}

TEST_F(ListEditingTest, ABlankLineAndAnErasedOneMoveThePositionExceptDuringPlayback) {
    App.List.Select(2);
    App.Fields.Entry.NoteLengthCombo = 0;
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayPos.Get(), "01 01/02");
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "003")
        << "a dotted whole note and a whole one before the line";
    App.List.Select(1);
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "001");
    App.Fields.State.MusicIsPlaying = true;
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "001");
}

TEST_F(ListEditingTest, TheBoxesAndThePositionGoWithASelectionThatIsMovedWithoutPlaying) {
    App.List.Select(3);
    App.Editing.ListEditing.FollowSelection();
    EXPECT_TRUE(App.Fields.Entry.ModTripletCheck);
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "003");
    EXPECT_EQ(App.List.Line(3).Mod, "Tri");
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    App.List.Select(1);
    App.Fields.State.MusicIsPlaying = true;
    App.Editing.ListEditing.FollowSelection();
    EXPECT_TRUE(App.Fields.Entry.ModDottedCheck);
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "003")
        << "the labels belong to the music while it plays";
}

}  // namespace
}  // namespace quavix::test
