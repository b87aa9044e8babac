// SPDX-License-Identifier: MIT
#include "songfile/recovery.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/recovering_program.h"

namespace quavix {
namespace {

using test::Copy1;
using test::Copy2;
using test::Header;
using test::Machine;
using test::RecoveringProgram;
using test::Song;

const std::string Lock1 = "/state/unsaved-001.lock";

struct RecoveryTest : testing::Test {
    Machine m;
    RecoveringProgram p{m};
};

TEST_F(RecoveryTest, WritesACopyFiveSecondsAfterAChange) {
    m.Time.RunUntil(1000);
    p.Append("C4");
    m.Time.RunUntil(5999);
    EXPECT_FALSE(m.Disk.Has(Copy1));
    m.Time.RunUntil(6000);
    EXPECT_TRUE(m.Disk.Content(Copy1).starts_with(Header));
    EXPECT_TRUE(m.Disk.Content(Copy1).ends_with(
        "Quarter C4 - -\r\n//RecoveryFile \r\n//RecoveryTime 2001-02-03%20at%2012:00:06\r\n"));
}

TEST_F(RecoveryTest, WritesNothingWhileNothingChanges) {
    m.Time.RunUntil(60'000);
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
    p.Append("C4");
    m.Time.RunUntil(70'000);
    m.Disk.Put(Copy1, "untouched");
    m.Time.RunUntil(200'000);
    EXPECT_EQ(m.Disk.Content(Copy1), "untouched");
    p.Append("D4");
    m.Time.RunUntil(205'000);
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter D4"), std::string::npos);
}

TEST_F(RecoveryTest, WritesAgainFiveSecondsAfterTheNextChangeHoweverManyFollow) {
    for (int second = 0; second < 9; ++second) {
        m.Time.RunUntil(second * 1000);
        p.Append(fmt::format("C{}", second));
    }
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter C4 "), std::string::npos);  // at 5 s
    EXPECT_EQ(m.Disk.Content(Copy1).find("Quarter C5 "), std::string::npos);
    m.Time.RunUntil(10'000);
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter C8 "), std::string::npos);
}

TEST_F(RecoveryTest, WritesNothingForAChangeThatWasReverted) {
    p.Append("C4");
    p.App.Editing.EditHistory.Undo();
    m.Time.RunUntil(60'000);
    EXPECT_FALSE(m.Disk.Has(Copy1));
}

TEST_F(RecoveryTest, WritesNothingWhileTheMusicPlays) {
    p.App.Fields.State.MusicIsPlaying = true;
    p.Append("C4");
    m.Time.RunUntil(60'000);
    EXPECT_FALSE(m.Disk.Has(Copy1));
    p.App.Fields.State.MusicIsPlaying = false;
    m.Time.RunUntil(60'500);
    EXPECT_TRUE(m.Disk.Has(Copy1));
}

TEST_F(RecoveryTest, WritesNothingInTheMiddleOfATone) {
    p.App.Fields.Output.MutePCSpeaker = true;  // such a tone is a wait, in which handlers run
    p.Append("C4");
    m.Time.RunUntil(4000);
    bool ticked = false;
    m.Time.At(8000, [&] { ticked = true; });
    std::string note = "C4";
    p.App.Outputs.ToneDispatcher.UniBeep(note, 6000);
    EXPECT_TRUE(ticked);
    EXPECT_FALSE(m.Disk.Has(Copy1));
    EXPECT_FALSE(p.App.Outputs.ToneDispatcher.IsSounding());
    m.Time.RunUntil(10'500);
    EXPECT_TRUE(m.Disk.Has(Copy1));
}

TEST_F(RecoveryTest, WritesNothingWhileASongIsLoaded) {
    p.Append("C4");
    m.Disk.Put(Song, Header + "MUSICLISTSTART\r\nWhole\r\nQuarter D4 -\r\n");
    bool written = false;
    p.Boxes.WhileOpen([&] {
        m.Time.RunUntil(20'000);
        written = m.Disk.Has(Copy1);
    });
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.App.Storage.SongDocument.LoadFile(Song);
    EXPECT_FALSE(written);
    m.Time.RunUntil(60'000);
    EXPECT_FALSE(m.Disk.Has(Copy1));
}

TEST_F(RecoveryTest, DeletesTheCopyWhenTheSongIsSaved) {
    p.Append("C4");
    m.Time.RunUntil(5000);
    EXPECT_TRUE(m.Disk.Has(Copy1));
    p.Picker.AnswerNext(Song);
    p.App.Storage.SongDocument.SaveAs();
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
    p.Append("D4");
    m.Time.RunUntil(10'000);
    EXPECT_NE(m.Disk.Content(Copy1).find("//RecoveryFile /songs/song.QVX\r\n"), std::string::npos);
}

TEST(Recovery, ARunningProcessKeepsItsCopyToItself) {
    Machine m;
    RecoveringProgram first(m);
    first.Append("C4");
    RecoveringProgram second(m);
    m.Time.RunUntil(5000);
    second.Keeper.OfferLeftovers(false);
    EXPECT_TRUE(second.Boxes.Shown().empty());
    second.Append("D4");
    m.Time.RunUntil(10'000);
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter C4"), std::string::npos);
    EXPECT_NE(m.Disk.Content(Copy2).find("Quarter D4"), std::string::npos);
}

TEST_F(RecoveryTest, ACleanEndLeavesNothing) {
    p.Append("C4");
    m.Time.RunUntil(5000);
    p.Keeper.GiveUpUnsaved();
    p.Keeper.End();
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
    p.Append("D4");
    m.Time.RunUntil(60'000);
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
}

TEST(Recovery, AnEndWithoutAQuestionKeepsTheLatestChanges) {
    Machine m;
    {
        RecoveringProgram p(m);
        p.Append("C4");
        m.Time.RunUntil(5000);
        p.Append("D4");
        p.Keeper.End();
    }
    EXPECT_EQ(m.Disk.NormalFiles("/state/*"), std::vector<std::string>{Copy1});
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter D4"), std::string::npos);
}

TEST_F(RecoveryTest, AnUnchangedSongLeavesNothingHoweverItEnds) {
    m.Disk.Put(Song, Header);
    p.App.Storage.SongDocument.LoadFile(Song);
    m.Time.RunUntil(60'000);
    p.Keeper.End();
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
}

TEST_F(RecoveryTest, ReportsWhyItCannotWriteAndTriesAgain) {
    p.App.Log.Enable();
    m.Disk.FailWriting(Lock1, std::errc::permission_denied);
    p.Append("C4");
    m.Time.RunUntil(5000);
    EXPECT_NE(p.Keeper.Problem().Get(), "");
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_NE(p.LogText().find("The recovery copy can't be written in \"/state\""), std::string::npos);
    m.Disk.FailWriting(Lock1, {});
    m.Time.RunUntil(35'000);
    EXPECT_EQ(p.Keeper.Problem().Get(), "");
    EXPECT_TRUE(m.Disk.Has(Copy1));
}

TEST_F(RecoveryTest, ADiskThatIsFullLeavesTheOldCopyWhole) {
    p.Append("C4");
    m.Time.RunUntil(5000);
    const std::string old = m.Disk.Content(Copy1);
    m.Disk.SetSpaceLeft(100);
    p.Append("D4");
    m.Time.RunUntil(60'000);
    EXPECT_EQ(m.Disk.Content(Copy1), old);
    EXPECT_NE(p.Keeper.Problem().Get(), "");
}

}  // namespace
}  // namespace quavix
