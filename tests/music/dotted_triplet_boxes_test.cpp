// SPDX-License-Identifier: MIT
#include "music/dotted_triplet_boxes.h"

#include <gtest/gtest.h>

#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

class DottedTripletTest : public testing::Test {
  protected:
    DottedTripletTest() {
        List.Insert(1, {"Half", "C4", "", "Tri"});
        List.Insert(2, {"Half", "C4", "", ""});
    }

    std::string ModOf(std::int32_t row) { return std::string(List.Text(row, Cell::Mod)); }

    MainFields Fields;
    MusicList List;
    SimulatedTime Time;
    SimulatedFiles Disk;
    DebugLog Log{Disk, Time, "log"};
    EditHistory History{Fields.Song, List};
    DottedTripletBoxes Boxes{Fields.Entry, List, History, Log};
};

TEST_F(DottedTripletTest, DottedAndTripletExcludeEachOtherAndWriteTheSelectedLine) {
    List.Select(1);
    Boxes.UpdateModButtons();
    EXPECT_TRUE(Fields.Entry.ModTripletCheck);
    Fields.Entry.ModDottedCheck = true;
    EXPECT_TRUE(Fields.Entry.ModDottedCheck);
    EXPECT_FALSE(Fields.Entry.ModTripletCheck);
    EXPECT_EQ(ModOf(1), "Dot");
    Fields.Entry.ModTripletCheck = true;
    EXPECT_FALSE(Fields.Entry.ModDottedCheck);
    EXPECT_EQ(ModOf(1), "Tri");
    Fields.Entry.ModTripletCheck = false;
    EXPECT_EQ(ModOf(1), "");
}

TEST_F(DottedTripletTest, WithoutASelectedLineTheBoxesOnlyPresetTheNextNote) {
    Fields.Entry.ModDottedCheck = true;
    EXPECT_EQ(ModOf(1), "Tri");
    EXPECT_EQ(ModOf(2), "");
    Boxes.UpdateModButtons();
    EXPECT_TRUE(Fields.Entry.ModDottedCheck);
}

TEST_F(DottedTripletTest, TheBoxesFollowTheSelectedLineInAnyLetterCase) {
    Log.Enable();
    List.SetText(2, Cell::Mod, "DOT");
    List.Select(2);
    Boxes.UpdateModButtons();
    EXPECT_TRUE(Fields.Entry.ModDottedCheck);
    List.Select(1);
    Boxes.UpdateModButtons();
    EXPECT_TRUE(Fields.Entry.ModTripletCheck);
    EXPECT_FALSE(Fields.Entry.ModDottedCheck);
    EXPECT_EQ(ModOf(1), "Tri");
    List.SetText(2, Cell::Mod, "");
    List.Select(2);
    Boxes.UpdateModButtons();
    EXPECT_FALSE(Fields.Entry.ModTripletCheck);
    EXPECT_EQ(Disk.Content("log"),
              "12:00:00 - UpdateModButtons() - Dotted\r\n12:00:00 - UpdateModButtons() - Triplet\r\n");
}

}  // namespace
}  // namespace quavix
