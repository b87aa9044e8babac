// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <gtest/gtest.h>

namespace quavix {
namespace {

TEST(CommandLine, IsTheArgumentsAsOneText) {
    EXPECT_EQ(CommandText({}), "");
    EXPECT_EQ(CommandText({"my", "song.QVX"}), "my song.QVX");
}

TEST(CommandLine, NamesAFileWithoutItsQuotes) {
    EXPECT_EQ(FileNameIn("\"/music/my song.QVX\""), "/music/my song.QVX");
    EXPECT_EQ(FileNameIn("a\"b\"c"), "abc");
    EXPECT_EQ(FileNameIn("plain"), "plain");
}

TEST(CommandLine, OnlyItsFirstWordCanAskForInformation) {
    EXPECT_TRUE(AnswerToOption({"--help"}).has_value());
    EXPECT_EQ(AnswerToOption({"--version"})->substr(0, 7), "quavix ");
    EXPECT_FALSE(AnswerToOption({}).has_value());
    EXPECT_FALSE(AnswerToOption({"song", "--help"}).has_value());
}

TEST(CommandLine, NamesOneControlToRegister) {
    EXPECT_EQ(ControlToRegister({"--register", "/a/midiio32.ocx"}), "/a/midiio32.ocx");
    EXPECT_FALSE(ControlToRegister({"--register"}).has_value());
    EXPECT_FALSE(ControlToRegister({"song", "/a/midiio32.ocx"}).has_value());
}

}  // namespace
}  // namespace quavix
