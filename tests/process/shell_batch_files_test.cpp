// SPDX-License-Identifier: MIT
#include "platform/posix/shell_batch_files.h"

#include <cstdlib>
#include <fstream>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/common/system_ports.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

/// A program that stands for the one that registers controls: what it is called with goes to a pipe of a
/// name.
class ShellBatchFilesTest : public testing::Test {
  protected:
    ShellBatchFilesTest() {
        Folder.Put("program", "#!/bin/sh\nprintf '%s\\n' \"$@\" >>\"$(dirname \"$0\")/calls\"\n" +
                                  std::string("case $2 in *crash*) kill -KILL $$;; esac\n"
                                              "case $2 in */last) echo >\"$(dirname \"$0\")/end\";; esac\n"));
        chmod(Folder.File("program").c_str(), S_IRWXU);
        mkfifo(Folder.File("end").c_str(), S_IRUSR | S_IWUSR);
    }

    std::string Register(const std::string& control) {
        return Batches.RegisterCommand() + Batches.Quoted(control) + "\n";
    }
    /// Waits until the line for the control "/last" has run.
    void WaitForLastLine() {
        std::ifstream end(Folder.File("end"));
        std::string line;
        std::getline(end, line);
    }

    test::TemporaryFolder Folder;
    ShellBatchFiles Batches{Folder.File("program")};
};

TEST_F(ShellBatchFilesTest, RegistersAControlAndErasesAFile) {
    Folder.Put("marker", "");
    Folder.Put("batch", Register("/a/control.ocx") + "erase " + Batches.Quoted(Folder.File("marker")) + "\n" +
                            Register("/last"));
    EXPECT_FALSE(Batches.Start(Folder.File("batch")));
    WaitForLastLine();
    EXPECT_EQ(Folder.Content("calls"), "--register\n/a/control.ocx\n--register\n/last\n");
    EXPECT_FALSE(std::filesystem::exists(Folder.File("marker")));
}

TEST_F(ShellBatchFilesTest, TheNextLineRunsAfterALineThatDies) {
    Folder.Put("batch", Register("/crash") + "erase \"/nowhere/at all\"\n" + Register("/last"));
    EXPECT_FALSE(Batches.Start(Folder.File("batch")));
    WaitForLastLine();
    EXPECT_EQ(Folder.Content("calls"), "--register\n/crash\n--register\n/last\n");
}

TEST_F(ShellBatchFilesTest, NamesMayContainAnyCharacter) {
    const std::string name = "/a b/$HOME `id` \"quoted\" \\ 'single' * ?~;&|#!";
    Folder.Put("batch", Register(name) + Register("/last"));
    EXPECT_FALSE(Batches.Start(Folder.File("batch")));
    WaitForLastLine();
    EXPECT_EQ(Folder.Content("calls"), "--register\n" + name + "\n--register\n/last\n");
}

TEST_F(ShellBatchFilesTest, TheFileMayBeDeletedAsSoonAsItHasBeenStarted) {
    Folder.Put("batch", Register("/first") + Register("/last"));
    EXPECT_FALSE(Batches.Start(Folder.File("batch")));
    std::filesystem::remove(Folder.File("batch"));
    WaitForLastLine();
    EXPECT_EQ(Folder.Content("calls"), "--register\n/first\n--register\n/last\n");
}

TEST_F(ShellBatchFilesTest, AFileThatIsNotThereCannotBeStarted) {
    EXPECT_TRUE(Batches.Start(Folder.File("nothing")));
}

TEST_F(ShellBatchFilesTest, WithoutAProgramNameItStartsTheRunningProgram) {
    EXPECT_NE(MakeBatchFiles()->RegisterCommand().find("quavix-process-tests\" --register "),
              std::string::npos);
}

}  // namespace
}  // namespace quavix
