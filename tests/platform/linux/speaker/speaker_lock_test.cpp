// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_lock.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace quavix {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class SpeakerLockIn : public testing::Test {
  protected:
    SpeakerLockIn() {
        std::string pattern = fs::temp_directory_path() / "quavix-lock-XXXXXX";
        temp_ = mkdtemp(pattern.data());
        run_ = temp_ / "run";
        fs::create_directory(run_);
        chmod(run_.c_str(), 0700);
        own_ = temp_ / fmt::format("quavix-{}", geteuid());
    }
    ~SpeakerLockIn() override { fs::remove_all(temp_); }

    SpeakerLock Take(const std::string& runtimeFolder) { return TakeSpeakerLock(runtimeFolder, temp_); }

    fs::path temp_;
    fs::path run_;
    fs::path own_;
};

TEST_F(SpeakerLockIn, TheRuntimeFolderIsTakenThere) {
    EXPECT_TRUE(Take(run_).File);
    EXPECT_TRUE(fs::exists(run_ / "quavix-speaker.lock"));
    EXPECT_FALSE(fs::exists(own_));
}

TEST_F(SpeakerLockIn, UseIsRefusedToASecondCopyUntilTheFirstIsGone) {
    {
        const SpeakerLock first = Take(run_);
        const SpeakerLock second = Take(run_);
        EXPECT_TRUE(first.File);
        EXPECT_FALSE(second.File);
        EXPECT_EQ(second.Reason, "Another copy of Quavix is using the PC speaker.");
    }
    EXPECT_TRUE(Take(run_).File);
}

TEST_F(SpeakerLockIn, NoRuntimeFolderMakesAPrivateOne) {
    for (const std::string folder : {"", "relative/folder", "/nowhere/at/all"}) {
        EXPECT_TRUE(Take(folder).File) << folder;
        struct stat facts {};
        ASSERT_EQ(lstat(own_.c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777, 0700u);
    }
}

TEST_F(SpeakerLockIn, ARuntimeFolderOpenToOthersIsNotTakenThere) {
    chmod(run_.c_str(), 0770);
    EXPECT_TRUE(Take(run_).File);
    EXPECT_FALSE(fs::exists(run_ / "quavix-speaker.lock"));
    EXPECT_TRUE(fs::exists(own_ / "quavix-speaker.lock"));
}

TEST_F(SpeakerLockIn, AFolderOpenToOthersIsRefused) {
    fs::create_directory(own_);
    chmod(own_.c_str(), 0777);
    const SpeakerLock lock = Take("");
    EXPECT_FALSE(lock.File);
    EXPECT_THAT(lock.Reason, HasSubstr("not a private folder"));
}

TEST_F(SpeakerLockIn, ALinkToAFolderIsRefused) {
    fs::create_directory_symlink(run_, own_);
    EXPECT_FALSE(Take("").File);
    EXPECT_FALSE(fs::exists(run_ / "quavix-speaker.lock"));
}

TEST_F(SpeakerLockIn, AFolderWhereTheLockIsALinkIsRefused) {
    const fs::path victim = temp_ / "victim";
    fs::create_symlink(victim, run_ / "quavix-speaker.lock");
    const SpeakerLock lock = Take(run_);
    EXPECT_FALSE(lock.File);
    EXPECT_THAT(lock.Reason, HasSubstr("can't be made"));
    EXPECT_FALSE(fs::exists(victim));
}

}  // namespace
}  // namespace quavix
