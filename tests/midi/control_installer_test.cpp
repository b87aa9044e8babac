// SPDX-License-Identifier: MIT
#include "midi/control_installer.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "shell/program_info.h"
#include "shell/runtime_error.h"
#include "support/shown_dialogs.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

constexpr const char* Name = "midiio32.ocx";
constexpr const char* Source = "/program/midiio32.ocx";
constexpr const char* Destination = "/windows/system32/midiio32.ocx";
constexpr const char* Marker = "/program/NOTYETDONE.txt";
constexpr const char* Batch = "/program/regocx.bat";

class ControlInstallerTest : public testing::Test {
  protected:
    void TickAll() {
        // The boxes alone, without what they switch.
        for (Watched<bool>* check : Checks)
            *check = true;
    }

    test::SimulatedProgram P;
    MainFields Fields;
    ControlInstaller Controls{{Fields.Mods, Fields.State, P.Disk, P.Batches, P.Clipboard, P.Boxes, P.App.Wait,
                               P.App.Log, "/program", "/windows"}};
    Watched<bool>* Checks[3] = {&Fields.Mods.UseMIDIFile.Ticked, &Fields.Mods.UseMIDIOut.Ticked,
                                &Fields.Mods.UseMIDIIn.Ticked};
};

TEST_F(ControlInstallerTest, AnInstalledControlIsUsedAtOnceAndNothingIsWritten) {
    P.Disk.Put(Destination, "installed");
    P.Disk.Put(Source, "shipped");
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.Timeline.Text(), "");
    EXPECT_EQ(P.Disk.Content(Destination), "installed");
    EXPECT_FALSE(P.Disk.Has(Marker));
    EXPECT_FALSE(P.Disk.Has(Batch));
}

TEST_F(ControlInstallerTest, CopiesTheControlAndRegistersItByABatchFileOfTwoLines) {
    P.Disk.Put(Source, "module");
    std::string batch;
    P.Batches.OnLine = [&](const std::string&) {
        batch = P.Disk.Content(Batch);
        EXPECT_TRUE(P.Disk.Has(Marker));
        EXPECT_EQ(P.Disk.Content(Marker), "");
        return true;
    };
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.Disk.Content(Destination), "module");
    EXPECT_EQ(batch, "register \"/windows/system32/midiio32.ocx\"\nerase \"/program/NOTYETDONE.txt\"\n");
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 batch /program/regocx.bat\n"
              "0.1250 batch line register \"/windows/system32/midiio32.ocx\"\n"
              "0.2500 batch line erase \"/program/NOTYETDONE.txt\"\n");
    EXPECT_EQ(P.Time.Now(), 300 * SimulatedTime::CountsPerMs) << "it looks every 100 ms";
    EXPECT_FALSE(P.Disk.Has(Batch));
    EXPECT_FALSE(P.Disk.Has(Marker));
}

TEST_F(ControlInstallerTest, LogsEachStep) {
    P.Disk.Put(Source, "module");
    P.Batches.LineMs = 40;
    P.App.Log.Enable();
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.LogText(),
              "    CopyFileToSystem32(midiio32.ocx) - START\n"
              "    SourceFile = /program/midiio32.ocx\n"
              "    DestFile = /windows/system32/midiio32.ocx\n"
              "    FileExists(\"/windows/system32/midiio32.ocx\") = FALSE\n"
              "    FileExists(\"/program/midiio32.ocx\") = TRUE\n"
              "    FileCopy /program/midiio32.ocx,/windows/system32/midiio32.ocx\n"
              "    Creating NotYetDoneFile = /program/NOTYETDONE.txt\n"
              "    Creating BatFile = /program/regocx.bat\n"
              "    Executing BAT file\n"
              "    FileExists(\"/program/NOTYETDONE.txt\") = TRUE\n"
              "    FileExists(\"/program/NOTYETDONE.txt\") = FALSE\n"
              "    Deleting BAT file\n"
              "    FileExists(\"/windows/system32/midiio32.ocx\") = TRUE\n"
              "    CopyFileToSystem32() - END\n"
              "\n");
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
}

TEST_F(ControlInstallerTest, WithoutEitherCopyItSaysWhereToGetTheFileAndUnticksAllMidiBoxes) {
    TickAll();
    P.App.Log.Enable();
    EXPECT_FALSE(Controls.CopyFileToSystem32(Name));
    test::ExpectOnlyBox(
        P.Boxes,
        {.Title = "Can't see a needed file!",
         .Text = "The first time you use this feature with this program, \r\n"
                 "the program needs 'midiio32.ocx' to be in the same folder as itself. \r\n"
                 "It will then copy that file to /windows/system32 so that you don't \r\n"
                 "need to worry about it in the future, on this computer.\r\n\r\n"
                 "However, the file can't be seen in the same folder as this program, \r\n"
                 "and it isn't in system32 yet either.\r\n\r\n"
                 "Please download the \r\n"
                 "latest version of Quavix from \r\n" +
                 std::string(program::UpdateAddress) +
                 "\r\n"
                 " (URL copied to clipboard), where all needed files should be included in the download.",
         .Icon = BoxIcon::Critical});
    EXPECT_EQ(P.Clipboard.Text(), program::UpdateAddress);
    for (const Watched<bool>* check : Checks)
        EXPECT_FALSE(*check);
    EXPECT_EQ(P.LogText(),
              "    CopyFileToSystem32(midiio32.ocx) - START\n"
              "    SourceFile = /program/midiio32.ocx\n"
              "    DestFile = /windows/system32/midiio32.ocx\n"
              "    FileExists(\"/windows/system32/midiio32.ocx\") = FALSE\n"
              "    FileExists(\"/program/midiio32.ocx\") = FALSE\n"
              "    SourceFile DOES NOT EXIST!\n");
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
    EXPECT_FALSE(P.Disk.Has(Marker));
}

TEST_F(ControlInstallerTest, AMissingCopyIsReportedAndUnticksAllMidiBoxes) {
    P.Disk.Put(Source, "module");
    P.App.Log.Enable();
    TickAll();
    P.Batches.OnLine = [&](const std::string&) {
        P.Disk.Delete(Destination);
        return true;
    };
    EXPECT_FALSE(Controls.CopyFileToSystem32(Name));
    test::ExpectOnlyBox(
        P.Boxes,
        {.Title = "Couldn't copy the file!",
         .Text =
             "The program just tried to copy a needed file, 'midiio32.ocx'\r\n"
             "to /windows/system32. The file is currently in the same folder as this program. \r\n\r\n"
             "The copy failed. Perhaps your Windows installation directory is not /windows/system32.\r\n\r\n"
             "The program needs the OCX file to be in system32, and info about it to be put into the "
             "registry using 'regsvr32'.\r\n\r\n"
             "Please see info.txt (included with this program) for info on how to do this yourself (it's "
             "not too tricky), at the bottom of the section for the MIDI feature which you just tried to "
             "use.\r\n\r\n"
             "Sorry about the trouble.",
         .Icon = BoxIcon::Critical});
    for (const Watched<bool>* check : Checks)
        EXPECT_FALSE(*check);
    EXPECT_TRUE(P.LogText().ends_with("    THE SourceFile TO DestFile COPY FAILED!\n")) << P.LogText();
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
    EXPECT_FALSE(P.Disk.Has(Batch));
}

TEST_F(ControlInstallerTest, TheWaitEndsOnlyWithTheMarkerAndRunsTheWindowsHandlers) {
    P.Disk.Put(Source, "module");
    P.Batches.OnLine = [](const std::string& line) { return !line.starts_with("erase"); };
    int clicks = 0;
    for (int minute = 1; minute <= 60; ++minute)
        P.Time.At(minute * 60'000, [&] { ++clicks; });
    P.Time.At(3'600'001, [&] { P.Disk.Delete(Marker); });
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(clicks, 60);
}

TEST_F(ControlInstallerTest, ClosingTheProgramEndsTheWaitWithoutAMessage) {
    P.Disk.Put(Source, "module");
    P.Batches.OnLine = [](const std::string&) { return false; };
    P.Time.At(5000, [&] { Fields.State.ShuttingDown = true; });
    EXPECT_FALSE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.Time.Now(), 5000 * SimulatedTime::CountsPerMs);
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(ControlInstallerTest, AnErrorOfTheCopyIsRaisedAndLeavesNothingBehind) {
    P.Disk.Put(Source, "module");
    P.Disk.FailWriting(Destination, std::errc::permission_denied);
    try {
        Controls.CopyFileToSystem32(Name);
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::PermissionDenied);
    }
    EXPECT_FALSE(P.Disk.Has(Marker));
    EXPECT_FALSE(P.Disk.Has("/program/regocx.lock"));
}

TEST_F(ControlInstallerTest, ACopyThatTheDiskHasNoRoomForLeavesNoHalfFile) {
    P.Disk.Put(Source, std::string(200'000, 'x'));
    P.Disk.SetSpaceLeft(100'000);
    EXPECT_THROW(Controls.CopyFileToSystem32(Name), RuntimeError);
    EXPECT_FALSE(P.Disk.Has(Destination));
}

TEST_F(ControlInstallerTest, ABatchFileThatCannotBeStartedIsAnErrorAndNothingIsWaitedFor) {
    P.Disk.Put(Source, "module");
    P.Batches.StartError = std::make_error_code(std::errc::permission_denied);
    EXPECT_THROW(Controls.CopyFileToSystem32(Name), RuntimeError);
    EXPECT_FALSE(P.Disk.Has(Marker));
    EXPECT_FALSE(P.Disk.Has(Batch));
}

TEST_F(ControlInstallerTest, WhereTheProgramsFolderCannotBeWrittenTheControlsFolderTakesMarkerAndBatchFile) {
    P.Disk.Put(Source, "module");
    for (const char* name : {Marker, Batch, "/program/regocx.lock"})
        P.Disk.FailWriting(name, std::errc::read_only_file_system);
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 batch /windows/system32/regocx.bat\n"
              "0.1250 batch line register \"/windows/system32/midiio32.ocx\"\n"
              "0.2500 batch line erase \"/windows/system32/NOTYETDONE.txt\"\n");
}

TEST_F(ControlInstallerTest, ASecondCopyOfTheProgramWaitsForTheFirstAndFindsTheControl) {
    P.Disk.Put(Source, "module");
    std::error_code error;
    auto held = P.Disk.TryLock("/program/regocx.lock", error);
    P.Time.At(450, [&] {
        P.Disk.Put(Destination, "from the other copy");
        held.reset();
    });
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(P.Time.Now(), 500 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(P.Disk.Content(Destination), "from the other copy");
    EXPECT_EQ(P.Timeline.Text(), "") << "it has registered nothing itself";
}

TEST_F(ControlInstallerTest, ASecondCopyOfTheProgramUsesTheControlWhileTheFirstStillRegistersIt) {
    P.Disk.Put(Source, "module");
    ControlInstaller second{{Fields.Mods, Fields.State, P.Disk, P.Batches, P.Clipboard, P.Boxes, P.App.Wait,
                             P.App.Log, "/program", "/windows"}};
    std::optional<bool> inner;
    P.Time.At(50, [&] { inner = second.CopyFileToSystem32(Name); });
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(inner, true);
    EXPECT_EQ(P.Timeline.Text("batch /"), "0.0000 batch /program/regocx.bat\n");
}

TEST_F(ControlInstallerTest, TheLockOfADeadProcessDoesNotBlockTheNextOne) {
    P.Disk.Put(Source, "module");
    P.Disk.Put("/program/regocx.lock", "");
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
}

TEST_F(ControlInstallerTest, WhileOneControlRegistersItselfTheUserCanTickTheOthersBox) {
    P.Disk.Put(Source, "devices");
    P.Disk.Put("/program/midifl32.ocx", "files");
    std::optional<bool> inner;
    P.Time.At(50, [&] { inner = Controls.CopyFileToSystem32("midifl32.ocx"); });
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_EQ(inner, true);
    EXPECT_EQ(P.Disk.Content("/windows/system32/midifl32.ocx"), "files");
    P.Time.RunUntil(1000);
    EXPECT_FALSE(P.Disk.Has(Marker));
    EXPECT_FALSE(P.Disk.Has(Batch));
    EXPECT_NE(P.Timeline.Text().find("register \"/windows/system32/midifl32.ocx\""), std::string::npos);
}

TEST_F(ControlInstallerTest, AMarkerLeftByAKilledProgramIsIgnored) {
    P.Disk.Put(Source, "module");
    P.Disk.Put(Marker, "");
    P.Disk.Put(Batch, "old");
    EXPECT_TRUE(Controls.CopyFileToSystem32(Name));
    EXPECT_FALSE(P.Disk.Has(Marker));
}

TEST_F(ControlInstallerTest, AnUnusableControlIsNamedAndOnlyItsBoxIsUnticked) {
    P.Disk.Put(Destination, "broken");
    TickAll();
    EXPECT_FALSE(Controls.MakeReady(Name, Fields.Mods.UseMIDIOut.Ticked,
                                    [] { return std::string("The file has version 2 of its interface."); }));
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    const std::string text = P.Boxes.Shown()[0].Text;
    EXPECT_NE(text.find("The file has version 2 of its interface."), std::string::npos);
    EXPECT_NE(text.find("Please delete this file:\r\n/windows/system32/midiio32.ocx\r\n"), std::string::npos);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_TRUE(Fields.Mods.UseMIDIIn.Ticked);
}

TEST_F(ControlInstallerTest, ABoxUntickedDuringTheInstallationStaysUnticked) {
    P.Disk.Put(Source, "module");
    Fields.Mods.UseMIDIOut.Ticked = true;
    P.Time.At(50, [&] { Fields.Mods.UseMIDIOut.Ticked = false; });
    EXPECT_FALSE(Controls.MakeReady(Name, Fields.Mods.UseMIDIOut.Ticked, [] {
        ADD_FAILURE() << "the control is loaded";
        return std::string();
    }));
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(ControlInstallerTest, ABoxWhoseControlCannotBeCopiedIsUnticked) {
    P.Disk.Put(Source, "module");
    P.Disk.FailWriting(Destination, std::errc::permission_denied);
    P.App.Log.Enable();
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_THROW(Controls.MakeReady(Name, Fields.Mods.UseMIDIOut.Ticked, [] { return std::string(); }),
                 RuntimeError);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
}

}  // namespace
}  // namespace quavix
