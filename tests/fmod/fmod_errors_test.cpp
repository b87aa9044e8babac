// SPDX-License-Identifier: MIT
#include "fmod/fmod_errors.h"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

TEST(FmodErrors, TextsMatchTheTableWithTheBlanksAtTheirEnds) {
    EXPECT_STREQ(FmodErrorText(1), "Tried to call lock a second time before unlock was called. ");
    EXPECT_STREQ(FmodErrorText(3), "Neither NTSCSI nor ASPI could be initialised. ");
    EXPECT_STREQ(FmodErrorText(36), "An invalid object handle was used. ");
    EXPECT_STREQ(FmodErrorText(66), "The number of allowed instances of a plugin has been exceeded ");
    EXPECT_STREQ(FmodErrorText(81), "The Version number of this file format is not supported. ");
}

TEST(FmodErrors, TheTableEqualsTheLibrarysTexts) {
    // FNV-1a of all texts, each with a line feed behind it.
    std::uint64_t sum = 1469598103934665603U;
    for (int result = 0; result <= 81; ++result) {
        for (const char c : std::string(FmodErrorText(result)) + "\n")
            sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    }
    EXPECT_EQ(sum, 0x3d8060207c26406eU);
}

TEST(FmodErrors, EveryOtherResultIsUnknown) {
    for (const std::int32_t result : {82, 1000, -1, std::numeric_limits<std::int32_t>::min()})
        EXPECT_STREQ(FmodErrorText(result), "Unknown error.") << result;
}

TEST(FmodErrors, NoErrorShowsAndLogsNothing) {
    test::SimulatedProgram p;
    p.App.Log.Enable();
    EXPECT_TRUE(p.App.Outputs.SoundMods.Errors.ERRCHECK(0));
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_EQ(p.LogText(), "");
}

TEST(FmodErrors, AnErrorIsLoggedAndShownInAPlainBox) {
    test::SimulatedProgram p;
    p.App.Log.Enable();
    EXPECT_FALSE(p.App.Outputs.SoundMods.Errors.ERRCHECK(61));
    EXPECT_FALSE(p.App.Outputs.SoundMods.Errors.ERRCHECK(-5));
    EXPECT_EQ(p.LogText(),
              "ERRCHECK() found FMOD error 61 (Error initializing output device. )\n"
              "ERRCHECK() found FMOD error -5 (Unknown error.)\n");
    ASSERT_EQ(p.Boxes.Shown().size(), 2u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Quavix");
    EXPECT_EQ(p.Boxes.Shown()[0].Text, "FMOD error! (61) Error initializing output device. ");
    EXPECT_EQ(p.Boxes.Shown()[0].Icon, BoxIcon::None);
    EXPECT_EQ(p.Boxes.Shown()[0].Buttons, BoxButtons::Ok);
    EXPECT_EQ(p.Boxes.Shown()[1].Text, "FMOD error! (-5) Unknown error.");
}

/// Message boxes that count the messages told. Questions fail the test.
struct OnlyTold : MessageBoxes {
    BoxAnswer Show(const MessageBox& box) override {
        ADD_FAILURE() << box.Text;
        return BoxAnswer::Ok;
    }
    void Tell(const MessageBox&) override { ++Told; }
    int Told = 0;
};

TEST(FmodErrors, AnErrorDoesNotBlockTheProgram) {
    test::SimulatedProgram p;
    OnlyTold boxes;
    FmodErrors errors(boxes, p.App.Log);
    EXPECT_FALSE(errors.ERRCHECK(36));
    EXPECT_EQ(boxes.Told, 1);
}

TEST(FmodErrors, ShownTogetherEachFailureStandsOnceInTheMessageAndEachTimeInTheLog) {
    test::SimulatedProgram p;
    p.App.Log.Enable();
    p.App.Outputs.SoundMods.Errors.ShowTogether([&] {
        for (const std::int32_t result : {61, 78, 78, 0, 61})
            p.App.Outputs.SoundMods.Errors.ERRCHECK(result);
    });
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(
        p.Boxes.Shown()[0].Text,
        "FMOD error! (61) Error initializing output device. \n"
        "FMOD error! (78) This command failed because System::init or System::setDriver was not called. ");
    const std::string log = p.LogText();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 4);
}

}  // namespace
}  // namespace quavix
