// SPDX-License-Identifier: MIT
// Lines as text, and the commands that carry them.
#include "songfile/line_clipboard.h"

#include <random>

#include <gtest/gtest.h>

#include "support/selection.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

struct LineClipboardTest : testing::Test, SimulatedProgram {
    LineClipboardTest() { SetSong({"Whole C4 E4 Dot", "Half D4 - -", "Quarter - - Tri", "1/8 F4 - -"}); }

    const std::string Start = "Whole C4 E4 Dot\nHalf D4 - -\nQuarter - - Tri\n1/8 F4 - -\n";
};

TEST(LineText, ReadsLinesOfMusic) {
    const LinesOfText read =
        ReadLines("Quarter c4 f#10 Dot\r\n\r\n  \t\n// a comment\nHalf - d4  \nWhole - - -");
    EXPECT_EQ(read.Lines,
              (std::vector<MusicLine>{
                  {"Quarter", "C4", "F#10", "Dot"}, {"Half", "", "D4", ""}, {"Whole", "", "", ""}}));
    EXPECT_EQ(read.Rejected, 0U);
}

TEST(LineText, TakesEveryEndOfLine) {
    for (const char* text : {"Half A4 -\nHalf B4 -", "Half A4 -\r\nHalf B4 -\r\n", "Half A4 -\rHalf B4 -\r"})
        EXPECT_EQ(ReadLines(text).Lines,
                  (std::vector<MusicLine>{{"Half", "A4", "", ""}, {"Half", "B4", "", ""}}))
            << text;
}

TEST(LineText, CountsTheLinesThatHaveFewerThanThreeFields) {
    const LinesOfText read = ReadLines("Half\nHalf C4\nHalf C4 -\nhello, world\n");
    EXPECT_EQ(read.Lines, (std::vector<MusicLine>{{"Half", "C4", "", ""}}));
    EXPECT_EQ(read.Rejected, 3U);
}

TEST(LineText, ProseOfThreeOrMoreWordsIsNotMusic) {
    for (const char* text :
         {"Thank you very much", "Half a pound of butter", "Half C4 - and more", "half C4 -", "1/32 C4 -",
          "Half H4 -", "Half E#4 -", "Half C -", "Half C4x -", "Half C4 - Dotted", "Half ERR12-4 -"}) {
        EXPECT_TRUE(ReadLines(text).Lines.empty()) << text;
        EXPECT_EQ(ReadLines(text).Rejected, 1U) << text;
    }
}

TEST(LineText, AModIsTakenInAnyLetterCaseAndKeptAsItIs) {
    EXPECT_EQ(ReadLines("Half C4 - dOT").Lines.at(0).Mod, "dOT");
    EXPECT_EQ(ReadLines("Half C4 - TRI").Lines.at(0).Mod, "TRI");
}

TEST(LineText, OnlyTheMusicOfAWholeSongFileIsTaken) {
    const LinesOfText read = ReadLines(
        "Quavix by Dastrel-204 file format\r\nRevision 148\r\n//When key is clicked,\r\nBPM 120\r\n"
        "MUSICLISTSTART\r\n//Length Note1 Note2\r\nHalf C4 - -\r\nwith best wishes, me\r\n");
    EXPECT_EQ(read.Lines, (std::vector<MusicLine>{{"Half", "C4", "", ""}}));
    EXPECT_EQ(read.Rejected, 1U) << "rejected settings are not counted as rejected lines";
}

TEST(LineText, BehindTheStartOfAListLinesAreTakenAsInASongFile) {
    const LinesOfText read = ReadLines("MUSICLISTSTART\nodd h4 - Dot and more\nHalf C4\n");
    EXPECT_EQ(read.Lines, (std::vector<MusicLine>{{"odd", "H4", "", "Dot and more"}}));
    EXPECT_EQ(read.Rejected, 1U);
}

TEST(LineText, OnlyUnusualCellsAreCopiedWithAListHeader) {
    MusicList list;
    list.Append("Half", "C4", "", "Dot");
    list.Append("Half", "C4", "", "Dot and more");
    const std::int32_t rows[] = {1, 2};
    EXPECT_EQ(TextOfLines(list, std::span(rows, 1)), "Half C4 - Dot\n");
    EXPECT_EQ(TextOfLines(list, rows), "MUSICLISTSTART\nHalf C4 - Dot\nHalf C4 - Dot and more\n");
}

TEST(LineText, SurvivesAnyText) {
    std::mt19937 random(3);
    const std::string alphabet = "\r\n -/CDc4#\tHalf\0\xC3\xA9";
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 40, ' ');
        for (char& c : text)
            c = alphabet[random() % alphabet.size()];
        const LinesOfText read = ReadLines(text);
        EXPECT_LE(read.Lines.size() + read.Rejected, text.size() + 1);
    }
}

TEST(LineText, ComesBackAsItWas) {
    std::mt19937 random(5);
    const auto oneOf = [&random](std::initializer_list<const char*> texts) {
        return texts.begin()[random() % texts.size()];
    };
    MusicList list;
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 1; row <= 500; ++row) {
        list.Append(oneOf({"Whole", "Half", "Quarter", "1/8", "1/16", "odd", ""}), oneOf({"", "C4", "A#10"}),
                    oneOf({"", "B0", "ERR12-4"}), oneOf({"", "Dot", "Tri", "dot tri"}));
        rows.push_back(row);
    }
    const LinesOfText read = ReadLines(TextOfLines(list, rows));
    ASSERT_EQ(read.Lines.size(), rows.size());
    for (const std::int32_t row : rows)
        EXPECT_EQ(read.Lines[static_cast<std::size_t>(row) - 1], list.Line(row));
}

TEST_F(LineClipboardTest, CopyingPutsTheSelectedLinesOnTheClipboardAndChangesNothing) {
    SetSelection(App.List, 3, {3, 1});
    App.Editing.LineClipboard.CopyLines();
    EXPECT_EQ(Clipboard.Text(), "Whole C4 E4 Dot\nQuarter - - Tri\n");
    EXPECT_EQ(Timeline.Text("clipboard"), "0.0000 clipboard Whole C4 E4 Dot|Quarter - - Tri|\n");
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    EXPECT_EQ(App.List.SelectedRows(), (std::vector<std::int32_t>{1, 3}));
}

TEST_F(LineClipboardTest, WithoutASelectedLineTheClipboardStaysAsItIs) {
    Clipboard.Put("something else");
    App.Editing.LineClipboard.CopyLines();
    App.Editing.LineClipboard.CutLines();
    App.Editing.LineClipboard.EraseLines();
    App.Editing.LineClipboard.DuplicateLines();
    EXPECT_EQ(Clipboard.Text(), "something else");
    EXPECT_EQ(SongText(), Start);
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
}

TEST_F(LineClipboardTest, CuttingIsOneStep) {
    SetSelection(App.List, 1, {1, 2});
    App.Editing.LineClipboard.CutLines();
    EXPECT_EQ(Clipboard.Text(), "Whole C4 E4 Dot\nHalf D4 - -\n");
    EXPECT_EQ(SongText(), "> Quarter - - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(App.Editing.EditHistory.UndoText.Get(), "Undo Cut lines");
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "> Whole C4 E4 Dot\n> Half D4 - -\nQuarter - - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(App.List.SelectedItem(), 1);
}

TEST_F(LineClipboardTest, LinesArePastedBeforeTheSelectedOneWhichStaysSelected) {
    Clipboard.Put("Half a4 -\r\nHalf b4 - dot\r\n");
    App.List.Select(2);
    const auto result = App.Editing.LineClipboard.PasteLines();
    EXPECT_EQ(result.Pasted, 2U);
    EXPECT_EQ(result.Rejected, 0U);
    EXPECT_EQ(SongText(),
              "Whole C4 E4 Dot\nHalf A4 - -\nHalf B4 - dot\n> Half D4 - -\nQuarter - - Tri\n1/8 F4 - -\n");
    EXPECT_EQ(App.Editing.EditHistory.UndoText.Get(), "Undo Paste lines");
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "Whole C4 E4 Dot\n> Half D4 - -\nQuarter - - Tri\n1/8 F4 - -\n");
}

TEST_F(LineClipboardTest, WithoutASelectedLineLinesAreAppended) {
    Clipboard.Put("Half A4 -");
    App.Editing.LineClipboard.PasteLines();
    EXPECT_EQ(SongText(), Start + "Half A4 - -\n");
    EXPECT_EQ(App.Editing.EditHistory.UndoText.Get(), "Undo Paste line");
    App.List.Clear();
    App.Editing.LineClipboard.PasteLines();
    EXPECT_EQ(SongText(), "Half A4 - -\n");
}

TEST_F(LineClipboardTest, TextThatIsNoMusicIsCountedAndChangesNothing) {
    Clipboard.Put("dear sir\nhello\n");
    const auto result = App.Editing.LineClipboard.PasteLines();
    EXPECT_EQ(result.Pasted, 0U);
    EXPECT_EQ(result.Rejected, 2U);
    EXPECT_FALSE(App.Editing.EditHistory.CanUndo);
    Clipboard.Put("");
    EXPECT_EQ(App.Editing.LineClipboard.PasteLines().Rejected, 0U);
}

TEST_F(LineClipboardTest, CopiesStandBehindTheLastSelectedLineAndAreSelected) {
    SetSelection(App.List, 1, {1, 3});
    App.Editing.LineClipboard.DuplicateLines();
    EXPECT_EQ(SongText(),
              "Whole C4 E4 Dot\nHalf D4 - -\nQuarter - - Tri\n> Whole C4 E4 Dot\n> Quarter - - Tri\n"
              "1/8 F4 - -\n");
    EXPECT_EQ(App.Editing.EditHistory.UndoText.Get(), "Undo Duplicate lines");
    EXPECT_EQ(Timeline.Text("clipboard"), "");
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(SongText(), "> Whole C4 E4 Dot\nHalf D4 - -\n> Quarter - - Tri\n1/8 F4 - -\n");
}

TEST_F(LineClipboardTest, ErasingOneSelectedLineIsTheSameAsEraseWholeLine) {
    for (std::int32_t row = 1; row <= 4; ++row) {
        SimulatedProgram other;
        SimulatedProgram one;
        for (SimulatedProgram* program : {&other, &one}) {
            program->SetSong({"Whole C4 E4 Dot", "Half D4 - -", "Quarter - - Tri", "1/8 F4 - -"});
            program->App.List.Select(row);
        }
        other.App.Editing.ListEditing.Command1_Click();
        one.App.Editing.LineClipboard.EraseLines();
        EXPECT_EQ(one.SongText(), other.SongText());
        EXPECT_EQ(one.App.List.SelectedItem(), other.App.List.SelectedItem());
        EXPECT_EQ(one.App.Editing.EditHistory.UndoText.Get(), other.App.Editing.EditHistory.UndoText.Get());
    }
}

TEST_F(LineClipboardTest, ErasingSeveralLinesSelectsTheOneBehindThem) {
    SetSelection(App.List, 3, {1, 3});
    App.Editing.LineClipboard.EraseLines();
    EXPECT_EQ(SongText(), "Half D4 - -\n> 1/8 F4 - -\n");
    SetSelection(App.List, 1, {1, 2});
    App.Editing.LineClipboard.EraseLines();
    EXPECT_EQ(SongText(), "");
    EXPECT_EQ(App.List.SelectedItem(), -1);
    App.Editing.EditHistory.Undo();
    App.Editing.EditHistory.Undo();
    EXPECT_EQ(App.List.SelectedRows(), (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(App.List.SelectedItem(), 3);
}

TEST_F(LineClipboardTest, LinesSelectedFollowsTheSelection) {
    EXPECT_FALSE(App.Editing.LineClipboard.LinesSelected);
    SetSelection(App.List, 2, {2, 3});
    EXPECT_TRUE(App.Editing.LineClipboard.LinesSelected);
    App.Editing.LineClipboard.EraseLines();
    EXPECT_TRUE(App.Editing.LineClipboard.LinesSelected) << "the line behind them";
    App.List.UnselectAll();
    EXPECT_FALSE(App.Editing.LineClipboard.LinesSelected);
    App.List.Select(1);
    App.List.Clear();
    EXPECT_FALSE(App.Editing.LineClipboard.LinesSelected);
}

TEST_F(LineClipboardTest, LinesGoFromOneCopyOfTheProgramToAnother) {
    SetSelection(App.List, 1, {1, 2, 3, 4});
    App.Editing.LineClipboard.CopyLines();
    SimulatedProgram other;
    other.Clipboard.Put(Clipboard.Text());
    other.App.Editing.LineClipboard.PasteLines();
    EXPECT_EQ(other.SongText(), Start);
}

}  // namespace
}  // namespace quavix::test
