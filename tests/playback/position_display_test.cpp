// SPDX-License-Identifier: MIT
#include "playback/position_display.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "music/lengths.h"
#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class PositionTest : public testing::Test {
  protected:
    void ExpectLabels(double position, const char* bar, const char* pos, const char* sig) {
        P.App.Editing.PositionDisplay.ShowPosition(position);
        EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayBar.Get(), bar);
        EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPos.Get(), pos);
        EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlaySig.Get(), sig);
    }
    double PositionOf(std::int32_t line) {
        double position = 99;
        P.App.Editing.PositionDisplay.WorkOutPlayPos(line, position);
        return position;
    }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
};

TEST_F(PositionTest, AnEmptyListShows001InBarAndPosition) {
    P.App.Editing.PositionDisplay.lblPlayBar = "x";
    P.App.Editing.PositionDisplay.lblPlayPos = "x";
    EXPECT_EQ(PositionOf(0), -1);
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayBar.Get(), "001");
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPos.Get(), "001");
    P.App.Editing.PositionDisplay.lblPlayBar = "x";
    ExpectLabels(-1, "001", "001", "01.00");
}

TEST_F(PositionTest, InFourFour) {
    P.SetSong({"Whole - - -"});
    ExpectLabels(0, "001", "01 ", "01.00");
    ExpectLabels(1.25, "002", "01 01/04", "02.00");
    ExpectLabels(0.9375, "001", "01 15/16", "04.75");
    ExpectLabels(0.625, "001", "01 05/08", "03.50");
    ExpectLabels(11, "012", "01 ", "01.00");
    ExpectLabels(1000.5, "1001", "01 01/02", "03.00");
}

TEST_F(PositionTest, InThreeFour) {
    P.SetSong({"Whole - - -"});
    Fields.Song.BeatsPerBar.Set(3);
    ExpectLabels(0.75, "002", "01 ", "01.00");
    ExpectLabels(0.5, "001", "01 01/02", "03.00");
}

TEST_F(PositionTest, InLongBarsThePositionCountsWholeNotes) {
    P.SetSong({"Whole - - -"});
    Fields.Song.BeatsPerBar.Set(8);
    ExpectLabels(1, "001", "02 ", "05.00");
    ExpectLabels(2.0625, "002", "01 01/16", "01.25");
}

TEST_F(PositionTest, AThirdShowsAnErrorOnRed) {
    P.SetSong({"1/8 C4 - Tri", "1/8 C4 - -"});
    P.App.Log.Enable();
    ExpectLabels(PositionOf(2), "001", "01 (ERR)", "01.17");
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPosBackColor, 255);
    EXPECT_NE(P.LogText().find("ConvertToFraction(0.0417"), std::string::npos) << P.LogText();
    ExpectLabels(0.25, "001", "01 01/04", "02.00");
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPosBackColor, 32768);
}

TEST_F(PositionTest, AllSixteenthsHaveTheirText) {
    const char* texts[] = {"",      "01/16", "01/08", "03/16", "01/04", "05/16", "03/08", "07/16",
                           "01/02", "09/16", "05/08", "11/16", "03/04", "13/16", "07/08", "15/16"};
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(ConvertToFraction(static_cast<float>(i) / 16, P.App.Log), texts[i]);
    EXPECT_EQ(ConvertToFraction(0.06254F, P.App.Log), "01/16") << "rounded to four decimals first";
    EXPECT_EQ(ConvertToFraction(0.0626F, P.App.Log), "(ERR)");
}

TEST_F(PositionTest, SumsJustBelowAWholeNumberAreRoundedUp) {
    P.App.Log.Enable();
    const auto fixed = [this](double value) {
        FixRoundingErrors(value, P.App.Log);
        return value;
    };
    EXPECT_EQ(fixed(1.99999), 2);
    EXPECT_EQ(fixed(2.00001), 2.00001);
    EXPECT_EQ(fixed(1.9999), 1.9999);
    EXPECT_EQ(fixed(0.99990001), 1);
    EXPECT_EQ(fixed(-0.5), -0.5);
    EXPECT_EQ(P.LogText(), "FixRoundingErrors() fixed an error.\nFixRoundingErrors() fixed an error.\n");
}

TEST_F(PositionTest, ThreeTripletsMakeAWholeOfTheirLength) {
    P.SetSong({"Whole C4 - Tri", "Whole C4 - Tri", "Whole C4 - Tri", "Half C4 - -"});
    EXPECT_EQ(PositionOf(4), 1);
    EXPECT_EQ(PositionOf(0), 1.5) << "below 1 means behind the last line";
    EXPECT_EQ(PositionOf(99), 1.5) << "lines that don't exist add nothing";
}

TEST_F(PositionTest, TheComputationIsLogged) {
    P.App.Log.Enable();
    PositionOf(0);
    P.SetSong({"Whole C4 - Tri", "Whole C4 - Tri", "Whole C4 - Tri"});
    PositionOf(0);
    EXPECT_EQ(
        P.LogText(),
        "    WorkOutPlayPos(0) - START\n    'CurrentLine < 1' section\n    'Item count = 0' section\n"
        "    WorkOutPlayPos() - END\n\n"
        "    WorkOutPlayPos(0) - START\n    'CurrentLine < 1' section\n    'Item count NOT = 0' section\n"
        "    Calculating play position by summing all line lengths\n"
        "    FixRoundingErrors() fixed an error.\n    WorkOutPlayPos() - END\n\n");
    // Once more, with the sums known: the corrected sum is reported again.
    P.Disk.Delete("/program/debuglog.txt");
    PositionOf(4);
    EXPECT_EQ(P.LogText(),
              "    WorkOutPlayPos(4) - START\n    Calculating play position by summing all line lengths\n"
              "    FixRoundingErrors() fixed an error.\n    WorkOutPlayPos() - END\n\n");
}

/// Summed anew from the first line on, as the definition has it.
double PlainSum(const MusicList& list, std::int32_t currentLine) {
    double sum = 0;
    for (std::int32_t row = 1; row < currentLine; ++row) {
        std::string mod(list.Text(row, Cell::Mod));
        sum += GetEquivalentLength(list.Text(row, Cell::Length), mod);
        const double whole = static_cast<double>(static_cast<std::int64_t>(sum));
        if (sum - whole > 0.9999)
            sum = whole + 1;
    }
    return sum;
}

TEST_F(PositionTest, KeptSumsEqualAPlainSumWhateverIsEditedBetween) {
    std::mt19937 random(20);
    const auto upTo = [&random](int limit) { return static_cast<std::int32_t>(random() % limit); };
    const char* mods[] = {"", "Dot", "Tri", "tri", "dot tri"};
    MusicList& list = P.App.List;
    for (int step = 0; step < 3000; ++step) {
        const std::int32_t count = list.Count();
        switch (upTo(8)) {
            case 0:
                if (count > 0)
                    list.Remove(1 + upTo(count));
                break;
            case 1:
                if (count > 0)
                    list.SetText(1 + upTo(count), Cell::Mod, mods[upTo(5)]);
                break;
            case 2:
                if (count > 0)
                    list.SetText(1 + upTo(count), Cell::Length, GetLengthAsWritten(upTo(7) - 1));
                break;
            case 3:
                if (upTo(200) == 0)
                    list.Clear();
                break;
            default:
                list.Insert(1 + upTo(count + 1), {GetLengthAsWritten(upTo(5)), "", "", mods[upTo(5)]});
        }
        const std::int32_t line = 1 + upTo(list.Count() + 2);
        const double expected = PlainSum(list, std::min(line, list.Count() + 1));
        ASSERT_EQ(PositionOf(line), expected) << "line " << line << " after step " << step;
    }
}

TEST_F(PositionTest, TheRedOfAnErrorGoesWithTheLastLine) {
    P.SetSong({"Whole - - Tri"});
    P.App.Editing.PositionDisplay.ShowSelectedLine();
    ASSERT_EQ(P.App.Editing.PositionDisplay.lblPlayPosBackColor, colour::Red);
    P.App.List.Select(1);
    P.App.Editing.LineClipboard.EraseLines();
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPos.Get(), "001");
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPosBackColor, colour::DarkGreen);
}

TEST_F(PositionTest, WhileEditingTheSelectedLineOrTheEndOfTheSongIsShown) {
    P.SetSong({"Whole - - -", "Half - - -", "Quarter - - -"});
    P.App.List.Select(3);
    P.App.Editing.PositionDisplay.ShowSelectedLine();
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPos.Get(), "01 01/02");
    P.App.List.UnselectAll();
    P.App.Editing.PositionDisplay.ShowSelectedLine();
    EXPECT_EQ(P.App.Editing.PositionDisplay.lblPlayPos.Get(), "01 03/04");
}

TEST_F(PositionTest, DoNotUpdateIsLogged) {
    P.App.Log.Enable();
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    EXPECT_TRUE(P.App.Editing.PositionDisplay.NoUpdateCheck);
    P.App.Editing.PositionDisplay.NoUpdateCheck = false;
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    EXPECT_FALSE(P.App.Editing.PositionDisplay.NoUpdateCheck);
    EXPECT_EQ(P.LogText(),
              "NoUpdateCheck clicked - UseNoUpdate -> TRUE\nNoUpdateCheck clicked - UseNoUpdate -> FALSE\n");
}

TEST_F(PositionTest, DoNotUpdateAsksBeforeItTakesTheBeatSoundAway) {
    Fields.Mods.UseBeat.Ticked = true;
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.Boxes.AnswerNext(BoxAnswer::No);
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    EXPECT_FALSE(P.App.Editing.PositionDisplay.NoUpdateCheck);
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Disable 'Play a beat sound'?");
    EXPECT_EQ(P.Boxes.Shown()[0].Icon, BoxIcon::Question);
    P.App.Editing.PositionDisplay.NoUpdateCheck = true;
    P.Boxes.AnswerNext(BoxAnswer::Yes);
    P.App.Editing.PositionDisplay.NoUpdateCheck_Click();
    EXPECT_TRUE(P.App.Editing.PositionDisplay.NoUpdateCheck);
}

TEST_F(PositionTest, TheHelpButtonTellsWhatTheOptionIsFor) {
    P.App.Editing.PositionDisplay.NoUpdateHButton_Click();
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Info about not updating position indicators");
    EXPECT_TRUE(
        P.Boxes.Shown()[0].Text.starts_with("This stops the green position indicators (in the bottom-right "
                                            "corner) from updating while the music is playing."));
}

}  // namespace
}  // namespace quavix
