// SPDX-License-Identifier: MIT
#include "songfile/song_format.h"

#include <gtest/gtest.h>

#include "songfile/song_files.h"

namespace quavix {
namespace {

TEST(AtStartOfString, ComparesTheFirstCharactersExactly) {
    EXPECT_TRUE(AtStartOfString("Revision 1", "Revision"));
    EXPECT_TRUE(AtStartOfString("Revision", "Revision"));
    EXPECT_TRUE(AtStartOfString("", ""));
    EXPECT_FALSE(AtStartOfString("revision", "Revision"));
    EXPECT_FALSE(AtStartOfString("Rev", "Revision"));
}

TEST(GetSettingName, IsTheTextBeforeTheFirstBlankInLowerCase) {
    EXPECT_EQ(GetSettingName("BPM 120 3"), "bpm");
    EXPECT_EQ(GetSettingName(" BPM"), "");
    EXPECT_EQ(GetSettingName(""), "");
}

TEST(GetSettingName, LosesTheLastCharacterOfALineWithoutABlank) {
    EXPECT_EQ(GetSettingName("MUSICLISTSTART"), "musicliststar");
    EXPECT_EQ(GetSettingName("x"), "");
}

TEST(GetSettingValue, IsTheTextAfterTheFirstBlankOrTheWholeLine) {
    test::SongProgram p;
    p.App.Log.Enable();
    EXPECT_EQ(GetSettingValue("Key Some  Value ", p.App.Log), "Some  Value ");
    EXPECT_EQ(GetSettingValue("Key", p.App.Log), "Key");
    EXPECT_EQ(GetSettingValue("Key ", p.App.Log), "");
    EXPECT_EQ(p.LogText(),
              "GetSettingValue(\"Key Some  Value \")\nGetSettingValue(\"Key\")\nGetSettingValue(\"Key \")\n");
}

}  // namespace
}  // namespace quavix
