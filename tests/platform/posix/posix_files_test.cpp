// SPDX-License-Identifier: MIT
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/common/system_ports.h"
#include "support/file_size_limit.h"
#include "support/ordinary_user.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

namespace fs = std::filesystem;
using test::OrdinaryUser;
using test::TemporaryFolder;

/// Files of the real file system in a folder that everybody may use.
class PosixFilesTest : public testing::Test {
  protected:
    PosixFilesTest() { fs::permissions(Folder.Path(), fs::perms::all); }

    std::string Read(const std::string& name, std::error_code& error) {
        const auto file = Disk->OpenForInput(Folder.File(name), error);
        std::string text;
        char buffer[7];
        while (file) {
            const std::size_t count = file->Read(buffer, error);
            if (count == 0)
                break;
            text.append(buffer, count);
        }
        return text;
    }

    std::error_code Replace(const std::string& name, std::string_view content) {
        std::error_code error;
        const auto file = Disk->OpenForOutput(Folder.File(name), error);
        if (!file)
            return error;
        if (const auto writeError = file->Write(content))
            return writeError;
        return file->Commit();
    }

    /// Commits a file, and returns the content of "song".
    std::string SongAfterCommitOf(FileWriter& file) const {
        EXPECT_FALSE(file.Commit());
        return Folder.Content("song");
    }

    std::error_code OpeningError(const std::string& name) {
        std::error_code error;
        EXPECT_EQ(Disk->OpenForOutput(Folder.File(name), error), nullptr);
        return error;
    }

    static mode_t Mode(const std::string& name) {
        struct stat status {};
        ::stat(name.c_str(), &status);
        return status.st_mode & 07777;
    }

    TemporaryFolder Folder;
    const std::unique_ptr<Files> Disk = MakeFiles();
};

TEST_F(PosixFilesTest, ReadsAFileFromItsFirstByteToItsLast) {
    using namespace std::string_literals;
    const std::string content = "a\0b\r\na line of some length"s;
    Folder.Put("song", content);
    std::error_code error;
    EXPECT_EQ(Read("song", error), content);
    EXPECT_FALSE(error);
    EXPECT_EQ(Disk->OpenForInput(Folder.File("song"), error)->Size(), content.size());
}

TEST_F(PosixFilesTest, SaysWhyAFileCannotBeRead) {
    std::error_code error;
    Read("missing", error);
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    fs::create_directory(Folder.File("folder"));
    Read("folder", error);
    EXPECT_EQ(error, std::errc::is_a_directory);
    Folder.Put("file", "x");
    Read("file/song", error);
    EXPECT_EQ(error, std::errc::not_a_directory);
    Read(std::string("fi\0le", 5), error);
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    Folder.Put("secret", "x");
    fs::permissions(Folder.File("secret"), fs::perms::none);
    const OrdinaryUser user;
    Read("secret", error);
    EXPECT_EQ(error, std::errc::permission_denied);
}

TEST_F(PosixFilesTest, RefusesPipesAndDevicesWithoutWaiting) {
    ASSERT_EQ(::mkfifo(Folder.File("pipe").c_str(), 0666), 0);
    std::error_code error;
    Read("pipe", error);
    EXPECT_EQ(error, std::errc::operation_not_supported);
    EXPECT_EQ(OpeningError("pipe"), std::errc::operation_not_supported);
    EXPECT_TRUE(Disk->Append(Folder.File("pipe"), "x"));
    EXPECT_EQ(Disk->OpenForInput("/dev/null", error), nullptr);
    EXPECT_EQ(error, std::errc::operation_not_supported);
    EXPECT_EQ(Disk->OpenForOutput("/dev/null", error), nullptr);
    EXPECT_EQ(error, std::errc::operation_not_supported);
}

TEST_F(PosixFilesTest, ReplacesAFileOnlyInCommit) {
    Folder.Put("song", "old");
    std::error_code error;
    const auto file = Disk->OpenForOutput(Folder.File("song"), error);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->Write("new"));
    EXPECT_EQ(Folder.Content("song"), "old");
    EXPECT_EQ(SongAfterCommitOf(*file), "new");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(PosixFilesTest, TheLastOfTwoCommitsWins) {
    Folder.Put("song", "old");
    std::error_code error;
    const auto one = Disk->OpenForOutput(Folder.File("song"), error);
    const auto other = Disk->OpenForOutput(Folder.File("song"), error);
    ASSERT_TRUE(one && other);
    EXPECT_FALSE(one->Write("first half, "));
    EXPECT_FALSE(other->Write("other"));
    EXPECT_FALSE(one->Write("second half"));
    EXPECT_EQ(SongAfterCommitOf(*other), "other");
    EXPECT_EQ(SongAfterCommitOf(*one), "first half, second half");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(PosixFilesTest, LeavesEverythingAsItWasWithoutCommit) {
    Folder.Put("song", "old");
    std::error_code error;
    Disk->OpenForOutput(Folder.File("song"), error)->Write("new");
    Disk->OpenForOutput(Folder.File("other"), error)->Write("new");
    EXPECT_EQ(Folder.Content("song"), "old");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

// A process that is killed meanwhile can't clear anything away.
TEST_F(PosixFilesTest, WritesAFileWithoutANameWhereTheFileSystemHasSuch) {
    const int unnamed = ::open(Folder.Path().c_str(), O_WRONLY | O_TMPFILE, 0600);
    ::close(unnamed);
    std::error_code error;
    const auto file = Disk->OpenForOutput(Folder.File("song"), error);
    EXPECT_FALSE(file->Write("new"));
    EXPECT_EQ(Folder.EntryCount(), unnamed >= 0 ? 0 : 1);
    EXPECT_EQ(SongAfterCommitOf(*file), "new");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(PosixFilesTest, GivesANewFileThePermissionsOfTheUmask) {
    const mode_t before = ::umask(027);
    EXPECT_FALSE(Replace("song", "x"));
    ::umask(before);
    EXPECT_EQ(Mode(Folder.File("song")), 0640U);
}

TEST_F(PosixFilesTest, KeepsThePermissionsOfAReplacedFile) {
    Folder.Put("song", "old");
    ::chmod(Folder.File("song").c_str(), 0606);
    EXPECT_FALSE(Replace("song", "new"));
    EXPECT_EQ(Mode(Folder.File("song")), 0606U);
}

TEST_F(PosixFilesTest, WritesThroughASymbolicLinkToWhereItLeads) {
    fs::create_directory(Folder.File("folder"));
    Folder.Put("folder/song", "old");
    fs::create_symlink("folder/song", Folder.File("link"));
    fs::create_symlink("link", Folder.File("second"));
    EXPECT_FALSE(Replace("second", "new"));
    EXPECT_TRUE(fs::is_symlink(Folder.File("second")));
    EXPECT_TRUE(fs::is_symlink(Folder.File("link")));
    EXPECT_EQ(Folder.Content("folder/song"), "new");
}

TEST_F(PosixFilesTest, CreatesTheFileThatADanglingLinkLeadsTo) {
    fs::create_symlink("target", Folder.File("link"));
    EXPECT_FALSE(Replace("link", "new"));
    EXPECT_TRUE(fs::is_symlink(Folder.File("link")));
    EXPECT_EQ(Folder.Content("target"), "new");
}

TEST_F(PosixFilesTest, SaysWhyAFileCannotBeReplaced) {
    fs::create_directory(Folder.File("folder"));
    EXPECT_EQ(OpeningError("folder"), std::errc::is_a_directory);
    EXPECT_EQ(OpeningError("folder/"), std::errc::is_a_directory);
    EXPECT_EQ(OpeningError("folder/."), std::errc::is_a_directory);
    EXPECT_EQ(OpeningError("missing/song"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(OpeningError(std::string(300, 'x')), std::errc::filename_too_long);
    fs::create_symlink("loop", Folder.File("loop"));
    EXPECT_EQ(OpeningError("loop"), std::errc::too_many_symbolic_link_levels);
    Folder.Put("file", "x");
    EXPECT_EQ(OpeningError("file/song"), std::errc::not_a_directory);
    std::error_code error;
    EXPECT_EQ(Disk->OpenForOutput("", error), nullptr);
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(Folder.EntryCount(), 3);
}

TEST_F(PosixFilesTest, DoesNotReplaceAFileThatMayNotBeWritten) {
    Folder.Put("song", "old");
    fs::permissions(Folder.File("song"), fs::perms{0444});
    const OrdinaryUser user;
    EXPECT_EQ(OpeningError("song"), std::errc::permission_denied);
    EXPECT_EQ(Folder.Content("song"), "old");
}

TEST_F(PosixFilesTest, CreatesNoFileInAFolderThatMayNotBeWritten) {
    fs::permissions(Folder.Path(), fs::perms{0555});
    {
        const OrdinaryUser user;
        EXPECT_EQ(OpeningError("song"), std::errc::permission_denied);
    }
    fs::permissions(Folder.Path(), fs::perms::all);
}

TEST_F(PosixFilesTest, ReplacesAFileInAFolderThatMayNotBeListed) {
    fs::permissions(Folder.Path(), fs::perms{0333});
    {
        const OrdinaryUser user;
        EXPECT_FALSE(Replace("song", "new"));
    }
    fs::permissions(Folder.Path(), fs::perms::all);
    EXPECT_EQ(Folder.Content("song"), "new");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(PosixFilesTest, ReportsAWriteThatTheSystemRefusesAndLeavesTheOldFile) {
    Folder.Put("song", "old");
    std::error_code error;
    {
        const test::FileSizeLimit limit(1000);
        error = Replace("song", std::string(2000, 'x'));
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(Folder.Content("song"), "old");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(PosixFilesTest, AppendsAndWritesInPlace) {
    EXPECT_FALSE(Disk->Append(Folder.File("log"), "one\r\n"));
    EXPECT_FALSE(Disk->Append(Folder.File("log"), "two\r\n"));
    EXPECT_FALSE(Disk->WriteAt(Folder.File("log"), 8, "x \r\n"));
    EXPECT_EQ(Folder.Content("log"), "one\r\ntwox \r\n");
    std::error_code error;
    EXPECT_EQ(Disk->Length(Folder.File("log"), error), 12U);
    EXPECT_FALSE(error);
    EXPECT_EQ(Disk->Length(Folder.File("missing"), error), 0U);
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(Disk->Append(Folder.Path().string(), "x"), std::errc::is_a_directory);
    EXPECT_EQ(Disk->WriteAt(Folder.File("missing/log"), 0, "x"), std::errc::no_such_file_or_directory);
}

TEST_F(PosixFilesTest, FindsOrdinaryFilesOnly) {
    Folder.Put("song.QVX", "x");
    Folder.Put(".hidden.QVX", "x");
    fs::create_directory(Folder.File("folder.QVX2"));
    fs::create_symlink("nowhere", Folder.File("dangling"));
    const auto finds = [this](const std::string& name) { return Disk->FindsNormalFile(Folder.File(name)); };
    EXPECT_TRUE(finds("song.QVX"));
    EXPECT_TRUE(finds("*.QVX"));
    EXPECT_TRUE(finds("s?ng.*"));
    for (const char* name : {"song", "*.qvy", ".hidden.QVX", ".h*", "*hidden*", "folder.QVX2", "*2",
                             "dangling", "missing/*", "folder.QVX2/"})
        EXPECT_FALSE(finds(name)) << name;
    EXPECT_FALSE(Disk->FindsNormalFile(""));
}

}  // namespace
}  // namespace quavix
