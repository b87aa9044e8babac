// SPDX-License-Identifier: MIT
#include "shell/debug_log.h"

#include <gtest/gtest.h>

#include "shell/event_boundary.h"
#include "shell/file_access.h"
#include "shell/runtime_error.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

class DebugLogTest : public testing::Test {
  protected:
    std::string Content() const { return Disk.Content("/p/debuglog.txt"); }

    Timeline Events;
    SimulatedTime Time{{.Time = {9, 5, 7}}};
    SimulatedFiles Disk;
    SimulatedMessageBoxes Boxes{Time, Events};
    DebugLog Log{Disk, Time, "/p/debuglog.txt"};
};

TEST_F(DebugLogTest, WritesNothingWhileItIsOff) {
    Log.LogText("a");
    Log.LogIndentInc("b");
    Log.LogIndentDec("c");
    Log.Text("{}", 1);
    Disk.Put("/p/x", "");
    EXPECT_TRUE(FileExists("/p/x", Disk, Log));
    EXPECT_FALSE(Disk.Has("/p/debuglog.txt"));
    EXPECT_EQ(Log.LogIndent(), 0);
}

TEST_F(DebugLogTest, ALineIsTimeOfDayHyphenIndentationAndText) {
    Log.Enable();
    Log.LogText("plain");
    Log.LogIndentInc("DoShutDownStuff() - START");
    EXPECT_EQ(Content(), "9:05:07 - plain\r\n9:05:07 -     DoShutDownStuff() - START\r\n");
}

TEST_F(DebugLogTest, AJoinedTextContinuesThePreviousLineWithoutABlankBeforeAndWithOneAfter) {
    Log.Enable();
    Log.LogText("Loading");
    Log.LogText("done", NoNewLine::Yes);
    EXPECT_EQ(Content(), "9:05:07 - Loadingdone \r\n");
    Log.LogText(".", NoNewLine::Yes);
    EXPECT_EQ(Content(), "9:05:07 - Loadingdone . \r\n");
}

TEST_F(DebugLogTest, JoiningToAnEmptyLogIsAnError) {
    Log.Enable();
    Disk.Put("/p/debuglog.txt", "");
    EXPECT_THROW(Log.LogText("x", NoNewLine::Yes), RuntimeError);
}

TEST_F(DebugLogTest, AnInnerLineIsIndentedAndItsEndIsFollowedByAnEmptyLine) {
    Log.Enable();
    Log.LogIndentInc("A");
    Log.LogIndentDec("B");
    Log.LogText("C");
    EXPECT_EQ(Content(), "9:05:07 -     A\r\n9:05:07 -     B\r\n\r\n9:05:07 - C\r\n");
}

TEST_F(DebugLogTest, IsAppendedToTheLogOfEarlierRuns) {
    Disk.Put("/p/debuglog.txt", "old\r\n");
    Log.Enable();
    Log.LogText("new");
    EXPECT_EQ(Content(), "old\r\n9:05:07 - new\r\n");
}

TEST_F(DebugLogTest, ABlockEndBelowZeroIsWrittenAtTheMargin) {
    Log.Enable();
    Log.LogIndentDec("A");
    Log.LogText("B");
    EXPECT_EQ(Log.LogIndent(), -1);
    EXPECT_EQ(Content(), "9:05:07 - A\r\n\r\n9:05:07 - B\r\n");
}

TEST_F(DebugLogTest, AnIndentationThatDoesNotFitIn16BitsIsAnOverflow) {
    Log.Enable();
    constexpr int DeepestThatFits = 32767 / 4;
    for (int i = 0; i < DeepestThatFits; ++i) {
        Log.LogIndentInc("");
        Disk.Delete("/p/debuglog.txt");
    }
    EXPECT_THROW(Log.LogIndentInc(""), RuntimeError);
}

TEST_F(DebugLogTest, AFileThatCannotBeWrittenIsAnErrorOfTheCaller) {
    Log.Enable();
    Disk.FailWriting("/p/debuglog.txt", std::errc::permission_denied);
    try {
        Log.LogText("x");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), 70);
    }
}

TEST_F(DebugLogTest, FileExistsLogsItsResult) {
    Disk.Put("/p/song.QVX", "");
    Log.Enable();
    EXPECT_TRUE(FileExists("/p/song.QVX", Disk, Log));
    EXPECT_FALSE(FileExists("/p/other", Disk, Log));
    EXPECT_EQ(
        Content(),
        "9:05:07 - FileExists(\"/p/song.QVX\") = TRUE\r\n9:05:07 - FileExists(\"/p/other\") = FALSE\r\n");
}

TEST_F(DebugLogTest, FileExistsOfAnEmptyNameOrAFolderIsFalseAndLogsNothing) {
    Disk.Put("/p/x", "");
    Log.Enable();
    EXPECT_FALSE(FileExists("", Disk, Log));
    EXPECT_FALSE(FileExists("C:\\p\\", Disk, Log));
    EXPECT_FALSE(FileExists("/p/", Disk, Log));
    EXPECT_FALSE(Disk.Has("/p/debuglog.txt"));
}

TEST_F(DebugLogTest, FileExistsPassesOverHiddenFilesAndTakesWildcards) {
    Disk.Put("/p/one.QVX", "");
    Disk.Put("/p/hidden", "");
    Disk.SetHidden("/p/hidden");
    EXPECT_FALSE(FileExists("/p/hidden", Disk, Log));
    EXPECT_TRUE(FileExists("/p/*.QVX", Disk, Log));
    EXPECT_TRUE(FileExists("/p/o?e.*", Disk, Log));
    EXPECT_FALSE(FileExists("/p/o?.QVX", Disk, Log));
    EXPECT_FALSE(FileExists("/q/*", Disk, Log));
}

TEST_F(DebugLogTest, TheMarkerFileSwitchesItOnWithANotice) {
    Disk.Put("/p/logenable", "");
    EXPECT_TRUE(EnableDebugLogIfWanted("/p", Disk, Boxes, Log));
    EXPECT_TRUE(Log.Enabled());
    EXPECT_FALSE(Disk.Has("/p/debuglog.txt")) << "the check itself is not logged";
    ASSERT_EQ(Boxes.Shown().size(), 1U);
    const MessageBox& box = Boxes.Shown().front();
    EXPECT_EQ(box.Title, "Debug logging is enabled");
    EXPECT_EQ(box.Icon, BoxIcon::Information);
    EXPECT_EQ(box.Text,
              "Because there is a file called 'logenable' in the same folder as this program, the program "
              "will make "
              "a log file which you can send to me (contact@quavix.example) in order to help me debug any "
              "problems.\r\n\r\nProgram performance might be decreased due to the additional CPU power "
              "required.\r\n"
              "Navigating Explorer out of the program's folder can often help to speed things up.\r\n\r\nAny "
              "existing "
              "'debuglog.txt' will be appended to.\r\n\r\nPlease try to use playback as little as possible, "
              "because "
              "playback causes the log file to get very big very quickly.");
}

TEST_F(DebugLogTest, WithoutTheMarkerFileItStaysOffWithoutAMessage) {
    EXPECT_FALSE(EnableDebugLogIfWanted("/p", Disk, Boxes, Log));
    EXPECT_FALSE(Log.Enabled());
    EXPECT_TRUE(Boxes.Shown().empty());
}

TEST_F(DebugLogTest, AnErrorEndsAtTheHandlersBoundaryLoggedAndShown) {
    Log.Enable();
    EventBoundary handlers(Boxes, Log);
    EXPECT_FALSE(handlers.Run("PlayAllButton_Click", [] { throw RuntimeError(RuntimeError::Overflow); }));
    EXPECT_TRUE(handlers.Run("StopPlayButton_Click", [] {}));
    EXPECT_EQ(Content(), "9:05:07 - Run-time error '6' in PlayAllButton_Click: Overflow\r\n");
    EXPECT_EQ(Events.Text("box"), "0.0000 box \"Quavix\" Run-time error '6':\n\nOverflow\n");
}

TEST_F(DebugLogTest, AfterAnErrorTheLogIsAsDeepAsBeforeItsHandler) {
    Log.Enable();
    EventBoundary handlers(Boxes, Log);
    Log.LogIndentInc("A() - START");
    handlers.Run("handler", [&] {
        Log.LogIndentInc("B() - START");
        throw RuntimeError(RuntimeError::Overflow);
    });
    EXPECT_EQ(Log.LogIndent(), 1);
    handlers.Run("handler", [&] { Log.LogIndentInc("C() - START"); });
    EXPECT_EQ(Log.LogIndent(), 2) << "without an error it is the handler's own business";
}

TEST_F(DebugLogTest, AnErrorOfTheLogItselfIsStillShown) {
    Log.Enable();
    Disk.FailWriting("/p/debuglog.txt", std::errc::no_space_on_device);
    EventBoundary handlers(Boxes, Log);
    EXPECT_FALSE(handlers.Run("handler", [&] { Log.LogText("x"); }));
    ASSERT_EQ(Boxes.Shown().size(), 1U);
    EXPECT_NE(Boxes.Shown().front().Text.find("'61'"), std::string::npos) << Boxes.Shown().front().Text;
}

TEST_F(DebugLogTest, ABlockHasAnOpeningAndAClosingLine) {
    Log.Enable();
    {
        const LogBlock outer(Log, "A()");
        const LogBlock inner(Log, "B()", "B({}) - START", 7);
        Log.LogText("x");
    }
    EXPECT_EQ(Content(),
              "9:05:07 -     A() - START\r\n9:05:07 -         B(7) - START\r\n9:05:07 -         x\r\n"
              "9:05:07 -         B() - END\r\n\r\n9:05:07 -     A() - END\r\n\r\n");
    EXPECT_EQ(Log.LogIndent(), 0);
}

TEST_F(DebugLogTest, ABlockClosesWithAnotherLineOrWithoutOne) {
    Log.Enable();
    {
        LogBlock other(Log, "A()");
        other.Close("B");
        LogBlock none(Log, "C()");
        none.Abandon();
    }
    EXPECT_EQ(Content(), "9:05:07 -     A() - START\r\n9:05:07 -     B\r\n\r\n9:05:07 -     C() - START\r\n");
    EXPECT_EQ(Log.LogIndent(), 0);
}

TEST_F(DebugLogTest, AnErrorWritesAClosingLineOnlyWhereItIsAskedFor) {
    Log.Enable();
    const auto fail = [this](bool closes) {
        LogBlock block(Log, "A()");
        if (closes)
            block.CloseOnError();
        throw RuntimeError(RuntimeError::Overflow);
    };
    EXPECT_THROW(fail(false), RuntimeError);
    EXPECT_EQ(Content(), "9:05:07 -     A() - START\r\n");
    Log.SetLogIndent(0);
    EXPECT_THROW(fail(true), RuntimeError);
    EXPECT_EQ(Content(),
              "9:05:07 -     A() - START\r\n9:05:07 -     A() - START\r\n9:05:07 -     A() - END\r\n\r\n");
}

TEST_F(DebugLogTest, ABlocksClosingLineThatCanNotBeWrittenIsAnErrorUnlessThereIsOneAlready) {
    const auto errorOf = [this](const std::string& file, bool fails) {
        DebugLog log(Disk, Time, file);
        log.Enable();
        try {
            LogBlock block(log, "A()");
            block.CloseOnError();
            Disk.FailWriting(file, std::errc::no_space_on_device);
            if (fails)
                throw RuntimeError(RuntimeError::Overflow);
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf("/p/one.txt", false), RuntimeError::DiskFull);
    EXPECT_EQ(errorOf("/p/other.txt", true), RuntimeError::Overflow);
}

}  // namespace
}  // namespace quavix
