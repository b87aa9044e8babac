// SPDX-License-Identifier: MIT
// Offers of the next start to load the copies that were left behind.
#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/recovering_program.h"
#include "songfile/recovery.h"

namespace quavix {
namespace {

using test::Copy1;
using test::Copy2;
using test::Header;
using test::LeaveBehind;
using test::Machine;
using test::RecoveringProgram;
using test::Song;

/// A program started after a kill, with this answer given to the offer of the copy.
struct AnsweringProgram : RecoveringProgram {
    AnsweringProgram(Machine& machine, BoxAnswer answer) : RecoveringProgram(machine) {
        Boxes.AnswerNext(answer);
        Keeper.OfferLeftovers(false);
    }
};

TEST(RecoveryOffer, ShowsNoMessageIfNoCopyWasLeft) {
    Machine m;
    RecoveringProgram p(m);
    p.Keeper.OfferLeftovers(false);
    p.Keeper.OfferLeftovers(true);
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(RecoveryOffer, NamesTheSongAndItsTime) {
    Machine m;
    LeaveBehind(m, "C4", Song);
    AnsweringProgram p(m, BoxAnswer::Cancel);
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "There is unsaved work");
    EXPECT_EQ(p.Boxes.Shown()[0].Text,
              "Quavix ended before this song was saved:\n\n"
              "/songs/song.QVX, as it was on 2001-02-03 at 12:00:05\n\n"
              "Load it now? \"No\" deletes it for good, \"Cancel\" keeps it for the next start.");
    EXPECT_EQ(p.Boxes.Shown()[0].Buttons, BoxButtons::YesNoCancel);
}

TEST(RecoveryOffer, YesLoadsTheSongAsModifiedUnderItsOwnName) {
    Machine m;
    LeaveBehind(m, "C4", Song);
    const std::string saved = m.Disk.Content(Song);
    AnsweringProgram p(m, BoxAnswer::Yes);
    EXPECT_EQ(p.Notes(), "C4 ");
    EXPECT_EQ(p.App.Storage.SongDocument.FileName().Get(), Song);
    EXPECT_TRUE(p.App.Storage.SongDocument.Modified());
    EXPECT_EQ(m.Disk.Content(Song), saved);
    EXPECT_TRUE(m.Disk.Has(Copy1));  // until it is saved
    EXPECT_TRUE(p.App.Storage.SongDocument.Save());
    EXPECT_NE(m.Disk.Content(Song).find("Quarter C4"), std::string::npos);
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
}

TEST(RecoveryOffer, ARecoveredSongSurvivesTheNextKillToo) {
    Machine m;
    LeaveBehind(m, "C4", Song);
    { AnsweringProgram p(m, BoxAnswer::Yes); }
    {
        AnsweringProgram p(m, BoxAnswer::Yes);
        p.Append("D4");
        m.Time.RunUntil(60'000);
    }
    AnsweringProgram p(m, BoxAnswer::Yes);
    EXPECT_EQ(p.Notes(), "C4 D4 ");
    EXPECT_EQ(p.App.Storage.SongDocument.FileName().Get(), Song);
    EXPECT_EQ(m.Disk.NormalFiles("/state/*.QVX").size(), 1U);
}

TEST(RecoveryOffer, NoDeletesIt) {
    Machine m;
    LeaveBehind(m, "C4");
    AnsweringProgram p(m, BoxAnswer::No);
    EXPECT_TRUE(m.Disk.NormalFiles("/state/*").empty());
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_FALSE(p.App.Storage.SongDocument.Modified());
}

TEST(RecoveryOffer, CancelKeepsItForTheNextStart) {
    Machine m;
    LeaveBehind(m, "C4");
    for (int start = 0; start < 2; ++start) {
        AnsweringProgram p(m, BoxAnswer::Cancel);
        EXPECT_EQ(p.Boxes.Shown().size(), 1U);
        p.Keeper.End();
    }
    EXPECT_EQ(m.Disk.NormalFiles("/state/*"), std::vector<std::string>{Copy1});
}

TEST(RecoveryOffer, OffersSeveralOneAfterAnother) {
    Machine m;
    {
        RecoveringProgram first(m);
        first.Append("C4");
        LeaveBehind(m, "D4", Song);
    }
    ASSERT_EQ(m.Disk.NormalFiles("/state/*.QVX").size(), 2U);
    RecoveringProgram p(m);
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.Keeper.OfferLeftovers(false);
    EXPECT_EQ(p.Boxes.Shown().size(), 2U);
    EXPECT_TRUE(p.Notes() == "C4 " || p.Notes() == "D4 ");
    EXPECT_EQ(m.Disk.NormalFiles("/state/*.QVX").size(), 1U);
}

TEST(RecoveryOffer, ASecondOneThatIsLoadedPutsTheFirstAsideForTheNextStart) {
    Machine m;
    {
        RecoveringProgram first(m);
        first.Append("C4");
        LeaveBehind(m, "D4", Song);
    }
    std::string loaded;
    {
        RecoveringProgram p(m);
        p.Boxes.AnswerNext(BoxAnswer::Yes);
        p.Boxes.AnswerNext(BoxAnswer::Yes);
        p.Keeper.OfferLeftovers(false);
        loaded = p.Notes();
        EXPECT_TRUE(p.Boxes.Shown()[1].Text.ends_with(
            "The song that you have just got back is kept for the next start if you load this one."));
        p.Keeper.GiveUpUnsaved();
        p.Keeper.End();
    }
    ASSERT_EQ(m.Disk.NormalFiles("/state/*.QVX").size(), 1U);
    AnsweringProgram p(m, BoxAnswer::Yes);
    EXPECT_EQ(loaded + p.Notes(), loaded == "C4 " ? "C4 D4 " : "D4 C4 ");
}

TEST(RecoveryOffer, ASongOnTheCommandLineIsNotReplacedAndCopiesAreReportedAndKept) {
    Machine m;
    LeaveBehind(m, "C4", Song);
    RecoveringProgram p(m);
    p.Append("D4");
    p.Keeper.OfferLeftovers(true);
    EXPECT_EQ(p.Notes(), "D4 ");
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_EQ(p.Boxes.Shown()[0].Buttons, BoxButtons::Ok);
    EXPECT_EQ(p.Boxes.Shown()[0].Text,
              "Quavix once ended before these songs were saved:\n\n"
              "/songs/song.QVX, as it was on 2001-02-03 at 12:00:05\n\n"
              "They are kept. Start Quavix without a song to get them back.");
    m.Time.RunUntil(60'000);  // its own copy takes another place
    EXPECT_NE(m.Disk.Content(Copy1).find("Quarter C4"), std::string::npos);
    EXPECT_NE(m.Disk.Content(Copy2).find("Quarter D4"), std::string::npos);
}

TEST(RecoveryOffer, TwoStartsAtOnceDoNotOfferTheSameSong) {
    Machine m;
    LeaveBehind(m, "C4");
    RecoveringProgram first(m);
    RecoveringProgram second(m);
    first.Boxes.WhileOpen([&] { second.Keeper.OfferLeftovers(false); });
    first.Boxes.AnswerNext(BoxAnswer::Yes);
    first.Keeper.OfferLeftovers(false);
    second.Keeper.OfferLeftovers(false);
    EXPECT_EQ(first.Notes(), "C4 ");
    EXPECT_TRUE(second.Boxes.Shown().empty());
}

TEST(RecoveryOffer, ACopyThatCannotBeReadIsReportedAndKept) {
    Machine m;
    LeaveBehind(m, "C4");
    m.Disk.FailReading(Copy1, std::errc::io_error);
    RecoveringProgram p(m);
    EXPECT_THROW(p.Keeper.OfferLeftovers(false), RuntimeError);
    EXPECT_TRUE(m.Disk.Has(Copy1));
}

TEST(RecoveryOffer, ACopyThatIsLoadedInPartIsKeptAndTheSongHasNoName) {
    Machine m;
    LeaveBehind(m, "C4", Song);
    const std::string copy = m.Disk.Content(Copy1);
    std::string broken = copy;
    broken.insert(broken.find("Quarter"), "Whole\r\n");
    m.Disk.Put(Copy1, broken);
    RecoveringProgram p(m);
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    p.Keeper.OfferLeftovers(false);
    EXPECT_EQ(p.App.Storage.SongDocument.FileName().Get(), "");
    EXPECT_TRUE(p.App.Storage.SongDocument.Modified());
    m.Time.RunUntil(60'000);
    EXPECT_EQ(m.Disk.Content(Copy1), broken);
    EXPECT_TRUE(m.Disk.Has(Copy2));
}

TEST(RecoveryNotes, HoldAnyFileName) {
    Machine m;
    for (const std::string& name :
         {std::string(), std::string("/songs/my song.QVX"), std::string("/a\r\n//RecoveryFile b"),
          std::string("/100%41\xFF\xC3\xA4"), "/" + std::string(4000, '\xE4')}) {
        m.Disk.Put("/copy", Header + RecoveryComments({name, "2001-02-03 at 12:00:00"}));
        std::error_code error;
        const RecoveryNotes notes = ReadRecoveryNotes(m.Disk, "/copy", error);
        EXPECT_FALSE(error);
        EXPECT_EQ(notes.FileName, name);
        EXPECT_EQ(notes.Written, "2001-02-03 at 12:00:00");
    }
}

TEST(RecoveryNotes, AreFoundBehindAVeryLongSong) {
    Machine m;
    m.Disk.Put("/copy", Header + std::string(1'000'000, 'x') + "\r\n" + RecoveryComments({"/song", "then"}));
    m.Disk.SetReadSize(777);
    std::error_code error;
    EXPECT_EQ(ReadRecoveryNotes(m.Disk, "/copy", error).FileName, "/song");
}

TEST(RecoveryNotes, AreEmptyInAFileWithoutThem) {
    Machine m;
    m.Disk.Put("/copy", Header + "Quarter //RecoveryFile x\r\n");
    std::error_code error;
    EXPECT_EQ(ReadRecoveryNotes(m.Disk, "/copy", error).FileName, "");
}

}  // namespace
}  // namespace quavix
