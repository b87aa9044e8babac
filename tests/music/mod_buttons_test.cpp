// SPDX-License-Identifier: MIT
#include "music/mod_buttons.h"

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
    EditHistory History{Fields, List};
    ModButtons Mods{Fields, List, History, Log};
};

TEST_F(DottedTripletTest, DottedAndTripletExcludeEachOtherAndWriteTheSelectedLine) {
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

TEST_F(DottedTripletTest, WithoutASelectedLineTheBoxesOnlyPresetTheNextNote) {
    Fields.ModDottedCheck = true;
    EXPECT_EQ(ModOf(1), "Tri");
    EXPECT_EQ(ModOf(2), "");
    Mods.UpdateModButtons();
    EXPECT_TRUE(Fields.ModDottedCheck);
}

TEST_F(DottedTripletTest, TheBoxesFollowTheSelectedLineInAnyLetterCase) {
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
