// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/common/environment.h"
#include "platform/common/system_ports.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

using test::TemporaryFolder;

TEST(Listing, GivesMatchingFilesInOrderWithoutFoldersAndHiddenOnes) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    for (const char* name : {"b.QVX", "a.QVX", ".c.QVX", "a.lock"})
        folder.Put(name, "");
    std::filesystem::create_directory(folder.File("d.QVX"));
    EXPECT_EQ(files->NormalFiles(folder.File("*.QVX")),
              (std::vector<std::string>{folder.File("a.QVX"), folder.File("b.QVX")}));
    EXPECT_TRUE(files->NormalFiles(folder.File("missing/*")).empty());
}

TEST(Deleting, TakesOrdinaryFilesOnly) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    folder.Put("song", "");
    EXPECT_FALSE(files->Delete(folder.File("song")));
    EXPECT_EQ(files->Delete(folder.File("song")), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(files->Delete(folder.Path()));
    EXPECT_EQ(folder.EntryCount(), 0);
}

TEST(CreatingAFolder, CreatesThoseAboveItForTheUserAlone) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    for (int time = 0; time < 2; ++time)
        EXPECT_FALSE(files->CreateFolder(folder.File("a/b/c")));
    struct stat status {};
    ASSERT_EQ(::stat(folder.File("a/b/c").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
    folder.Put("file", "");
    EXPECT_EQ(files->CreateFolder(folder.File("file")), std::errc::not_a_directory);
    EXPECT_TRUE(files->CreateFolder(folder.File("file/below")));
    EXPECT_TRUE(files->CreateFolder(""));
}

TEST(Lock, IsHeldByOneAtATimeAndItsFileGoesWithIt) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    std::error_code error;
    auto first = files->TryLock(folder.File("lock"), error);
    EXPECT_TRUE(first);
    EXPECT_FALSE(files->TryLock(folder.File("lock"), error));
    EXPECT_EQ(error, std::errc::resource_unavailable_try_again);
    first.reset();
    EXPECT_EQ(folder.EntryCount(), 0);
    EXPECT_TRUE(files->TryLock(folder.File("lock"), error));
    EXPECT_FALSE(error);
}

TEST(Lock, IsFreeIfOnlyTheFileOfAKilledProcessIsLeft) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    folder.Put("lock", "");
    std::error_code error;
    EXPECT_TRUE(files->TryLock(folder.File("lock"), error));
}

TEST(Lock, TheReasonForAMissingLockIsGiven) {
    const TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    std::error_code error;
    EXPECT_FALSE(files->TryLock(folder.File("missing/lock"), error));
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_FALSE(files->TryLock(folder.Path(), error));
    EXPECT_TRUE(error);
    std::filesystem::create_symlink(folder.File("elsewhere"), folder.File("link"));
    EXPECT_FALSE(files->TryLock(folder.File("link"), error));
    EXPECT_TRUE(error);
}

/// An environment variable for as long as this lives; null is none.
class Variable {
  public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name))
            before_ = before;
        Set(value);
    }
    ~Variable() { Set(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void Set(const char* value) {
        if (value != nullptr)
            ::setenv(name_, value, 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

TEST(UserFolders, LieInTheUsersBaseFoldersOrBelowHome) {
    const Variable home("HOME", "/home/u");
    for (const char* none : {static_cast<const char*>(nullptr), "", "relative"}) {
        const Variable windir("windir", nullptr);
        const Variable data("XDG_DATA_HOME", none);
        const Variable state("XDG_STATE_HOME", none);
        EXPECT_EQ(WinFolderFromEnvironment(), "/home/u/.local/share/quavix");
        EXPECT_EQ(StateFolderFromEnvironment(), "/home/u/.local/state/quavix");
    }
    const Variable data("XDG_DATA_HOME", "/data");
    const Variable state("XDG_STATE_HOME", "/state");
    EXPECT_EQ(StateFolderFromEnvironment(), "/state/quavix");
    {
        const Variable windir("windir", nullptr);
        EXPECT_EQ(WinFolderFromEnvironment(), "/data/quavix");
    }
    const Variable windir("windir", "C:/WINDOWS");
    EXPECT_EQ(WinFolderFromEnvironment(), "C:/WINDOWS") << "as it is given";
}

}  // namespace
}  // namespace quavix
