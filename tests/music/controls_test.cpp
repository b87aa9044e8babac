// SPDX-License-Identifier: MIT
// The rules of the typed numbers, and the Dotted and Triplet boxes.
#include <gtest/gtest.h>

#include "music/mod_buttons.h"
#include "music/numeric_fields.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

class ControlsTest : public testing::Test {
  protected:
    ControlsTest() {
        List.Insert(1, {"Half", "C4", "", "Tri"});
        List.Insert(2, {"Half", "C4", "", ""});
    }

    std::string ModOf(std::int32_t row) { return std::string(List.Text(row, Cell::Mod)); }

    MainFields Fields;
    NumericFields Numbers{Fields};
    MusicList List;
    SimulatedTime Time;
    SimulatedFiles Disk;
    DebugLog Log{Disk, Time, "log"};
    EditHistory History{Fields, List};
    ModButtons Mods{Fields, List, History, Log};
};

TEST_F(ControlsTest, ATempoInRangeIsTaken) {
    Fields.BPMText = "40";
    EXPECT_EQ(Fields.BPM, 40);
    Fields.BPMText = "600";
    EXPECT_EQ(Fields.BPM, 600);
    Fields.BPMText = " 120.5 ";
    EXPECT_EQ(Fields.BPM, 120) << "halves go to the even number";
    EXPECT_EQ(Fields.BPMTextBackColor, colour::WindowBackground);
}

TEST_F(ControlsTest, ATempoOutOfRangeTurnsTheFieldOrangeAndIsIgnored) {
    for (const char* text : {"39", "39.9", "600.1", "601", "-5", "1e300"}) {
        Fields.BPMText = text;
        EXPECT_EQ(Fields.BPMTextBackColor, 33023) << text;
        EXPECT_EQ(Fields.BPM, 140);
        EXPECT_EQ(Fields.BPMText.Get(), text) << "what was typed stays";
    }
    Fields.BPMText = "150";
    EXPECT_EQ(Fields.BPMTextBackColor, colour::WindowBackground);
    EXPECT_EQ(Fields.BPM, 150);
}

TEST_F(ControlsTest, OtherTextRevertsToTheCurrentTempoAndAnEmptyFieldIsLeftAlone) {
    Fields.BPMText = "abc";
    EXPECT_EQ(Fields.BPMText.Get(), "140");
    Fields.BPMText = "";
    EXPECT_EQ(Fields.BPMText.Get(), "");
    EXPECT_EQ(Fields.BPM, 140);
}

TEST_F(ControlsTest, TheAlternateTimeTakesBothEndsOfItsRange) {
    Fields.AlternateTimeText = "15";
    EXPECT_EQ(Fields.AlternateTime, 15);
    Fields.AlternateTimeText = "2000";
    EXPECT_EQ(Fields.AlternateTime, 2000);
    for (const char* text : {"14", "2001", "99999"}) {
        Fields.AlternateTimeText = text;
        EXPECT_EQ(Fields.AlternateTimeTextBackColor, 33023) << text;
        EXPECT_EQ(Fields.AlternateTime, 2000);
    }
    Fields.AlternateTimeText = "x";
    EXPECT_EQ(Fields.AlternateTimeText.Get(), "2000");
}

TEST_F(ControlsTest, TheKeyboardOctaveHasALowestValueButNoHighest) {
    Fields.KeyboardOctaveText = "1";
    EXPECT_EQ(Fields.KeyboardOctaveText.Get(), "2");
    EXPECT_EQ(Fields.KeyboardOctave, 2);
    Fields.KeyboardOctaveText = "12";
    EXPECT_EQ(Fields.KeyboardOctave, 12);
    Fields.KeyboardOctaveText = "abc";
    EXPECT_EQ(Fields.KeyboardOctaveText.Get(), "12");
    Fields.KeyboardOctaveText = "";
    EXPECT_EQ(Fields.KeyboardOctave, 12);
}

TEST_F(ControlsTest, TypingWhatIsNoOctaveAtAllRaisesNoErrorButMarksTheField) {
    for (const char* text : {"300", "255.6", "1e300"}) {
        EXPECT_NO_THROW(Fields.KeyboardOctaveText = text);
        EXPECT_EQ(Fields.KeyboardOctave, 4) << text;
        EXPECT_EQ(Fields.KeyboardOctaveText.Get(), text);
        EXPECT_EQ(Fields.KeyboardOctaveTextBackColor, 33023) << text;
        EXPECT_EQ(Fields.OctLabel[1].Get(), "4");
    }
    Fields.KeyboardOctaveText = "30x";
    EXPECT_EQ(Fields.KeyboardOctaveText.Get(), "4");
    EXPECT_EQ(Fields.KeyboardOctaveTextBackColor, colour::WindowBackground);
    Fields.KeyboardOctaveText = "300";
    Fields.KeyboardOctaveText = "1";
    EXPECT_EQ(Fields.KeyboardOctaveTextBackColor, colour::WindowBackground);
    Fields.KeyboardOctaveText = "255";
    EXPECT_EQ(Fields.KeyboardOctave, 255);
}

TEST_F(ControlsTest, TheRatioLabelHasAtLeastTwoDigits) {
    EXPECT_EQ(Fields.NoteSilenceRatioLabel.Get(), "90%");
    Fields.NoteSilenceRatioSlider = 5;
    EXPECT_EQ(Fields.NoteSilenceRatioLabel.Get(), "05%");
    Fields.NoteSilenceRatioSlider = 100;
    EXPECT_EQ(Fields.NoteSilenceRatioLabel.Get(), "100%");
}

TEST_F(ControlsTest, TheTimeSignatureSliderSetsTheBeatsPerBar) {
    Fields.TimeSigSlider = 3;
    EXPECT_EQ(Fields.BeatsPerBar, 3);
    EXPECT_EQ(Fields.lblTimeSig.Get(), "3");
}

TEST_F(ControlsTest, DottedAndTripletExcludeEachOtherAndWriteTheSelectedLine) {
    List.Select(1);
    Mods.UpdateModButtons();
    EXPECT_TRUE(Fields.ModTripletCheck);
    Fields.ModDottedCheck = true;
    EXPECT_TRUE(Fields.ModDottedCheck);
    EXPECT_FALSE(Fields.ModTripletCheck);
    EXPECT_EQ(ModOf(1), "Dot");
    Fields.ModTripletCheck = true;
    EXPECT_FALSE(Fields.ModDottedCheck);
    EXPECT_EQ(ModOf(1), "Tri");
    Fields.ModTripletCheck = false;
    EXPECT_EQ(ModOf(1), "");
}

TEST_F(ControlsTest, WithoutASelectedLineTheBoxesOnlyPresetTheNextNote) {
    Fields.ModDottedCheck = true;
    EXPECT_EQ(ModOf(1), "Tri");
    EXPECT_EQ(ModOf(2), "");
    Mods.UpdateModButtons();
    EXPECT_TRUE(Fields.ModDottedCheck);
}

TEST_F(ControlsTest, TheBoxesFollowTheSelectedLineInAnyLetterCase) {
    Log.Enable();
    List.SetText(2, Cell::Mod, "DOT");
    List.Select(2);
    Mods.UpdateModButtons();
    EXPECT_TRUE(Fields.ModDottedCheck);
    List.Select(1);
    Mods.UpdateModButtons();
    EXPECT_TRUE(Fields.ModTripletCheck);
    EXPECT_FALSE(Fields.ModDottedCheck);
    EXPECT_EQ(ModOf(1), "Tri");
    List.SetText(2, Cell::Mod, "");
    List.Select(2);
    Mods.UpdateModButtons();
    EXPECT_FALSE(Fields.ModTripletCheck);
    EXPECT_EQ(Disk.Content("log"),
              "12:00:00 - UpdateModButtons() - Dotted\r\n12:00:00 - UpdateModButtons() - Triplet\r\n");
}

}  // namespace
}  // namespace quavix
