// SPDX-License-Identifier: MIT
#include "music/edit_history.h"

#include <functional>
#include <iterator>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "support/selection.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

struct EditHistoryTest : testing::Test, SimulatedProgram {
    EditHistoryTest() { SetSong({"Whole C4 E4 Dot", "Half D4 F4 -", "Quarter E4 - Tri"}); }

    std::string Captions() const {
        return App.Editing.EditHistory.UndoText.Get() + ", " + App.Editing.EditHistory.RedoText.Get();
    }

    const std::string Start = "Whole C4 E4 Dot\nHalf D4 F4 -\nQuarter E4 - Tri\n";
};

TEST_F(EditHistoryTest, ANewSongHasNothingToUndo) {
    EXPECT_EQ(Captions(), "Undo, Redo");
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    EXPECT_FALSE(App.Editing.EditHistory.CanRedo);
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    App.Editing.EditHistory.Redo();
    EXPECT_EQ(SongText(), Start);
}

TEST_F(EditHistoryTest, EveryCommandIsOneNamedStep) {
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(Captions(), "Undo Add note C4, Redo");
    App.List.Select(2);
    App.Editing.ListEditing.ClearNote1Button_Click();
    EXPECT_EQ(Captions(), "Undo Clear Note 1, Redo");
    App.Editing.ListEditing.ClearNote2Button_Click();
    EXPECT_EQ(Captions(), "Undo Clear Note 2, Redo");
    App.Fields.Entry.ModDottedCheck = true;
    EXPECT_EQ(Captions(), "Undo Dotted, Redo");
    App.Fields.Entry.ModTripletCheck = true;
    EXPECT_EQ(Captions(), "Undo Triplet, Redo");
    App.Editing.ListEditing.Command1_Click();
    EXPECT_EQ(Captions(), "Undo Erase line, Redo");
    App.Editing.ListEditing.SilentLineButton_Click();
    EXPECT_EQ(Captions(), "Undo Blank line, Redo");
    App.Fields.Entry.NoteReplaceCheck = true;
    App.Playing.PianoKeys.PianoKey_Click(13);
    EXPECT_EQ(Captions(), "Undo Replace with C#4, Redo");
    int steps = 0;
    for (; App.Editing.EditHistory.CanUndo; ++steps)
        App.Editing.EditHistory.Undo();
    EXPECT_EQ(steps, 8);
    EXPECT_EQ(SongText(), Start);
}

TEST_F(EditHistoryTest, UndoAndRedoRestoreRowsAndSelection) {
    App.List.Select(2);
    App.Editing.ListEditing.Command1_Click();
    const std::string erased = SongText();
    App.List.Select(1);
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 F4 -\nQuarter E4 - Tri\n");
    EXPECT_EQ(App.List.SelectedItem(), 2);
    EXPECT_EQ(Captions(), "Undo, Redo Erase line");
    App.List.Select(1);
    App.Editing.EditHistory.Redo();
    EXPECT_EQ(SongText(), erased);
    EXPECT_EQ(Captions(), "Undo Erase line, Redo");
}

TEST_F(EditHistoryTest, ANewStepForgetsWhatCouldBeRedone) {
    App.List.Select(2);
    App.Editing.ListEditing.Command1_Click();
    App.Editing.EditHistory.Undo();
    App.Editing.ListEditing.ClearNote1Button_Click();
    EXPECT_FALSE(App.Editing.EditHistory.CanRedo);
    App.Editing.EditHistory.Redo();
    EXPECT_EQ(App.List.Line(2).Note1, "");
}

TEST_F(EditHistoryTest, ACommandThatChangesNoTextAddsNoStep) {
    App.List.Select(3);
    App.Editing.ListEditing.ClearNote2Button_Click();
    App.Editing.ListEditing.UnselectButton_Click();
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, GesturesInsideAGestureBelongToIt) {
    {
        const EditGesture outer(App.Editing.EditHistory, "Everything");
        const EditGesture inner(App.Editing.EditHistory, "Part");
        App.List.Remove(1);
        App.List.SetText(1, Cell::Note1, "G4");
        App.Editing.EditHistory.Undo();
        EXPECT_EQ(App.List.Count(), 2) << "nothing is undone in the middle";
    }
    EXPECT_EQ(Captions(), "Undo Everything, Redo");
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), Start);
}

TEST_F(EditHistoryTest, ChangesOutsideAnyGestureGatherInOneStep) {
    App.List.SetText(1, Cell::Note1, "G4");
    App.List.Remove(2);
    App.List.Insert(1, {"1/8", "A4", "", ""});
    EXPECT_EQ(Captions(), "Undo Change, Redo");
    App.List.Select(1);
    App.Editing.ListEditing.Command1_Click();
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(Captions(), "Undo Change, Redo Erase line");
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), Start);
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
}

TEST_F(EditHistoryTest, RowsAddedOneByOneAreUndoneTogether) {
    constexpr std::int32_t Rows = 200'000;
    App.List.Select(2);
    for (std::int32_t row = 0; row < Rows; ++row)
        App.List.Append("1/8", row % 2 == 0 ? "C4" : "D4", "", "");
    App.List.Insert(2, {"1/16", "G4", "", ""});
    App.List.Insert(4, {"1/16", "A4", "", ""});
    App.List.Insert(1, {"1/16", "B4", "", ""});
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 F4 -\nQuarter E4 - Tri\n");
    App.Editing.EditHistory.Redo();
    EXPECT_EQ(App.List.Count(), Rows + 6);
    EXPECT_EQ(App.List.Line(1).Note1, "B4");
    EXPECT_EQ(App.List.Line(3).Note1, "G4");
    EXPECT_EQ(App.List.Line(5).Note1, "A4");
    EXPECT_EQ(App.List.Line(Rows + 6).Note1, "D4");
    EXPECT_TRUE(App.List.IsSelected(4));
}

TEST_F(EditHistoryTest, AChangeRevertedByHandAddsNoStep) {
    App.List.SetText(1, Cell::Note1, "G4");
    App.List.SetText(1, Cell::Note1, "C4");
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, PlayingAddsNoStep) {
    App.List.Select(1);
    App.Editing.ListEditing.ClearNote2Button_Click();
    App.Editing.EditHistory.Undo();
    App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    App.Playing.PlaybackEngine.PlayAllButton_Click();
    App.Playing.PlaybackEngine.MainList_ItemClick(3);
    EXPECT_EQ(Captions(), "Undo, Redo Clear Note 2");
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, PlayingALineOfAnotherSpellingAddsNoStepAndKeepsTheRedoSteps) {
    App.List.SetText(1, Cell::Mod, "other");
    App.List.SetText(2, Cell::Mod, "DOT");
    App.List.SetText(3, Cell::Mod, "Tri and more");
    App.Editing.EditHistory.StartOver();
    App.List.Select(1);
    App.Editing.ListEditing.ClearNote2Button_Click();
    App.Editing.EditHistory.Undo();
    for (const std::int32_t row : {2, 1, 3, 2})
        App.Playing.PlaybackEngine.MainList_ItemClick(row);
    EXPECT_TRUE(App.Fields.Entry.ModDottedCheck);
    EXPECT_EQ(App.List.Line(1).Mod, "other");
    EXPECT_EQ(App.List.Line(2).Mod, "DOT");
    EXPECT_EQ(App.List.Line(3).Mod, "Tri and more");
    EXPECT_EQ(Captions(), "Undo, Redo Clear Note 2");
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, UntickingABoxHasItsOwnStepName) {
    App.List.Select(1);
    App.Editing.DottedTripletBoxes.UpdateModButtons();
    App.Fields.Entry.ModDottedCheck = false;
    EXPECT_EQ(App.List.Line(1).Mod, "");
    EXPECT_EQ(Captions(), "Undo Plain length, Redo");
    App.Fields.Entry.ModTripletCheck = true;
    EXPECT_EQ(Captions(), "Undo Triplet, Redo");
    App.Fields.Entry.ModDottedCheck = true;
    EXPECT_EQ(Captions(), "Undo Dotted, Redo");
    App.Fields.Entry.ModDottedCheck = false;
    EXPECT_EQ(Captions(), "Undo Plain length, Redo");
}

TEST_F(EditHistoryTest, TheBoxesFollowAModThatIsUndone) {
    App.List.Select(2);
    App.Fields.Entry.ModDottedCheck = true;
    App.Editing.EditHistory.Undo();
    EXPECT_FALSE(App.Fields.Entry.ModDottedCheck);
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 F4 -\nQuarter E4 - Tri\n");
    App.Editing.EditHistory.Redo();
    EXPECT_TRUE(App.Fields.Entry.ModDottedCheck);
    EXPECT_EQ(App.List.Line(2).Mod, "Dot");
    App.Playing.PianoKeys.PianoKey_Click(12);
    App.Editing.EditHistory.Undo();
    EXPECT_TRUE(App.Fields.Entry.ModDottedCheck) << "a preset for the next note stays";
}

TEST_F(EditHistoryTest, ThePositionFollowsWhatIsUndoneExceptDuringPlayback) {
    App.List.Select(3);
    App.Editing.ListEditing.Command1_Click();
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "003");
    App.Editing.PositionDisplay.lblPlayBar = "music";
    App.Fields.State.MusicIsPlaying = true;
    App.Editing.EditHistory.Redo();
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "music");
}

TEST_F(EditHistoryTest, LoadingAndClearingStartOver) {
    App.Playing.PianoKeys.PianoKey_Click(12);
    Disk.Put("song", "Quavix by Dastrel-204 file format\r\nBPM 99\r\nMUSICLISTSTART\r\nHalf C4 - -\r\n");
    App.Storage.SongReader.ActuallyLoadMusic("song");
    EXPECT_EQ(Captions(), "Undo, Redo");
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "Half C4 - -\n");
    App.Playing.PianoKeys.PianoKey_Click(12);
    App.List.Clear();
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, AResetInsideAGestureForgetsWhatTheGestureDidBefore) {
    {
        const EditGesture gesture(App.Editing.EditHistory, "Reset");
        App.List.Remove(1);
        App.List.Clear();
        App.List.Append("Half", "C4", "", "");
    }
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "");
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
}

TEST_F(EditHistoryTest, UndoingBackToTheSaveMakesTheSongUnmodified) {
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    Picker.AnswerNext("song.QVX");
    App.Storage.SongDocument.SaveAs();
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Redo();
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_TRUE(App.Editing.EditHistory.Modified) << "the same text, but another way to it";
}

TEST_F(EditHistoryTest, ASaveThatWasCancelledOrFailedLeavesTheSongModified) {
    App.Playing.PianoKeys.PianoKey_Click(12);
    Picker.AnswerNext("");
    App.Storage.SongDocument.SaveAs();
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, AChangeOutsideAGestureAfterASaveCanBeUndoneBackToIt) {
    App.List.SetText(1, Cell::Note1, "G4");
    App.Editing.EditHistory.MarkSaved();
    App.List.SetText(1, Cell::Note1, "A4");
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(App.List.Line(1).Note1, "G4");
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, TheSettingsOfTheSoundCountAsChangesUntilTheyAreSetBack) {
    App.Fields.Song.BPM.Type("99");
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Fields.Song.BPM.Type("140");
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Fields.Song.AlternateTime.Type("50");
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Fields.Song.AlternateTime.Type("20");
    App.Fields.Song.BeatsPerBar.Set(3);
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Fields.Song.BeatsPerBar.Set(4);
    App.Fields.Song.NoteSilenceRatio.Set(100);
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.MarkSaved();
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
    App.Fields.Entry.NoteLengthCombo = 0;
    App.Fields.Entry.KeyboardOctave.Type("7");
    EXPECT_FALSE(App.Editing.EditHistory.Modified) << "these are for the next note only";
}

TEST_F(EditHistoryTest, ARecoveredSongIsModifiedUntilItIsSaved) {
    App.Editing.EditHistory.MarkUnsaved();
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Playing.PianoKeys.PianoKey_Click(12);
    App.Editing.EditHistory.Undo();
    EXPECT_TRUE(App.Editing.EditHistory.Modified);
    App.Editing.EditHistory.MarkSaved();
    EXPECT_FALSE(App.Editing.EditHistory.Modified);
}

TEST_F(EditHistoryTest, TheOldestStepsAreForgottenBeforeTheyFillTheMemory) {
    constexpr std::int32_t Rows = 1'000'000;
    {
        const MusicListReset reset(App.List);
        for (std::int32_t row = 4; row <= Rows; ++row)
            App.List.Append("1/8", "C4", "", "");
    }
    std::vector<std::int32_t> all(Rows);
    std::iota(all.begin(), all.end(), 1);
    int done = 0;
    for (; done < 3; ++done) {
        SetSelection(App.List, 1, all);
        App.Editing.LineClipboard.EraseLines();
        EXPECT_EQ(App.List.Count(), 0);
        {
            const EditGesture gesture(App.Editing.EditHistory, "Fill");
            App.List.InsertRows(all, [](std::size_t) {
                return std::array<std::string_view, 4>{"Half", "D4", "", ""};
            });
        }
    }
    int undone = 0;
    for (; App.Editing.EditHistory.CanUndo; ++undone)
        App.Editing.EditHistory.Undo();
    EXPECT_EQ(undone, 3) << "each with a million rows and a run of selected ones";
    EXPECT_TRUE(App.Editing.EditHistory.Modified) << "the way back to the start is forgotten";
}

/// Returns all that undo restores: the song and its selection.
std::string StateOf(const SimulatedProgram& program) {
    return program.SongText() + std::to_string(program.App.List.SelectedItem());
}

/// Does something at random; only through commands, so that every change of the selection belongs to one.
void DoAnything(SimulatedProgram& program, std::mt19937& random) {
    Program& app = program.App;
    const auto below = [&random](std::int32_t limit) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(limit));
    };
    const auto anyRows = [&] {
        std::vector<std::int32_t> rows;
        for (std::int32_t row = 1; row <= app.List.Count(); ++row) {
            if (below(4) == 0)
                rows.push_back(row);
        }
        return rows;
    };
    const auto selectAnything = [&] {
        const std::vector<std::int32_t> rows = anyRows();
        const bool several = below(3) == 0;
        if (several)
            SetSelection(app.List, rows.empty() ? -1 : rows[random() % rows.size()], rows);
        else if (app.List.Count() > 0)
            app.List.Select(1 + below(app.List.Count()));
    };
    const auto changeOptions = [&] {
        app.Fields.Entry.NoteReplaceCheck = !app.Fields.Entry.NoteReplaceCheck;
        app.Fields.Entry.NoteLengthReplaceCheck = below(2) == 0;
        app.Fields.Entry.NoteLengthCombo = below(5);
    };
    const auto duplicate = [&] {
        if (app.List.Count() < 200)
            app.Editing.LineClipboard.DuplicateLines();
    };
    const auto enterNote = [&] { app.Playing.PianoKeys.PianoKey_Click(below(36)); };
    const std::function<void()> edits[] = {
        enterNote,
        enterNote,
        enterNote,
        [&] { app.Editing.ListEditing.ClearNote1Button_Click(); },
        [&] { app.Editing.ListEditing.ClearNote2Button_Click(); },
        [&] { app.Editing.ListEditing.Command1_Click(); },
        [&] { app.Editing.ListEditing.SilentLineButton_Click(); },
        [&] { app.Fields.Entry.ModDottedCheck = !app.Fields.Entry.ModDottedCheck; },
        [&] { app.Fields.Entry.ModTripletCheck = !app.Fields.Entry.ModTripletCheck; },
        changeOptions,
        [&] { app.Editing.LineClipboard.CopyLines(); },
        [&] { app.Editing.LineClipboard.CutLines(); },
        [&] { app.Editing.LineClipboard.PasteLines(); },
        duplicate,
        [&] { app.Editing.LineClipboard.EraseLines(); },
        selectAnything,
    };
    edits[below(static_cast<std::int32_t>(std::size(edits)))]();
}

TEST(EditHistoryOfAnything, UndoesToTheStartAndRedoesToTheEnd) {
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        SimulatedProgram program;
        program.App.Fields.Entry.NoteClickPlayCheck = false;
        program.SetSong({"Whole C4 E4 Dot", "Half D4 F4 -", "Quarter E4 - Tri", "1/8 - - -"});
        std::mt19937 random(seed);
        // The state before and after each step.
        std::vector<std::pair<std::string, std::string>> steps;
        for (int i = 0; i < 150; ++i) {
            const std::string before = StateOf(program);
            const std::string rowsBefore = program.SongText();
            DoAnything(program, random);
            std::string rowsOnly = program.SongText();
            const auto withoutMarks = [](std::string text) {
                std::erase(text, '>');
                std::erase(text, '*');
                std::erase(text, ' ');
                return text;
            };
            if (withoutMarks(rowsOnly) != withoutMarks(rowsBefore))
                steps.emplace_back(before, StateOf(program));
        }
        for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
            ASSERT_TRUE(program.App.Editing.EditHistory.CanUndo) << seed;
            program.App.Editing.EditHistory.Undo();
            ASSERT_EQ(StateOf(program), step->first) << "seed " << seed;
        }
        EXPECT_FALSE(program.App.Editing.EditHistory.CanUndo) << "seed " << seed;
        EXPECT_FALSE(program.App.Editing.EditHistory.Modified) << "seed " << seed;
        for (const auto& step : steps) {
            program.App.Editing.EditHistory.Redo();
            ASSERT_EQ(StateOf(program), step.second) << "seed " << seed;
        }
        EXPECT_FALSE(program.App.Editing.EditHistory.CanRedo) << "seed " << seed;
    }
}

TEST(EditStep, ATextWrittenToManyRowsIsStoredOnce) {
    const auto write = [](std::int32_t row, TextPool::Id before, TextPool::Id after) {
        return EditChange{.What = EditChange::Kind::CellWritten,
                          .Rows = {row},
                          .Written = Cell::Mod,
                          .Before = {before},
                          .After = after};
    };
    EditStep step;
    step.Add(write(2, 1, 3));
    step.Add(write(3, 2, 3));
    ASSERT_EQ(step.Changes.size(), 1U);
    EXPECT_EQ(step.Changes[0].Rows, (std::vector<std::int32_t>{2, 3}));
    EXPECT_EQ(step.Changes[0].Before, (std::vector<TextPool::Id>{1, 2}));
    step.Add(write(1, 2, 3));
    step.Add(write(4, 2, 1));
    EXPECT_EQ(step.Changes.size(), 3U) << "rows must ascend, and hold the same";
    step.Add(write(4, 1, 2));
    EXPECT_EQ(step.Changes.size(), 2U) << "what is taken back is no change";
}

}  // namespace
}  // namespace quavix::test
