// SPDX-License-Identifier: MIT
#include <chrono>
#include <memory>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "killed_writer.h"
#include "platform/common/system_ports.h"
#include "songfile/recovery_copies.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

/// How many whole lines a copy of the child's has; -1 when it isn't a whole one.
std::ptrdiff_t Lines(const std::string& text) {
    constexpr std::string_view Comment = "//Length Note1 Note2\r\n";
    constexpr std::string_view Line = "Quarter C4 - -\r\n";
    const std::size_t music = text.find(Comment);
    if (!text.starts_with("Quavix by Dastrel-204 file format\r\n") || music == std::string::npos)
        return -1;
    std::string_view rest = std::string_view(text).substr(music + Comment.size());
    std::ptrdiff_t lines = 0;
    for (; rest.starts_with(Line); ++lines)
        rest.remove_prefix(Line.size());
    const bool hasNotes =
        rest.starts_with("//RecoveryFile \r\n//RecoveryTime 2001-") && rest.ends_with("\r\n");
    return hasNotes ? lines : -1;
}

TEST(RecoveryCopy, IsCompleteAndUnlockedWheneverItsProcessIsKilled) {
    constexpr int Kills = 50;
    constexpr int LatestMicroseconds = 20'000;
    std::minstd_rand random(21);
    for (int kill = 0; kill < Kills; ++kill) {
        const test::TemporaryFolder folder;
        test::KilledWriter writer(QUAVIX_RECOVERY_CHILD, folder.Path());
        ASSERT_TRUE(writer.HasWritten());
        const std::unique_ptr<Files> files = MakeFiles();
        RecoverySlots slots(*files, folder.Path());
        const std::vector<std::string> running = slots.Copies();
        ASSERT_EQ(running.size(), 1U);
        EXPECT_FALSE(slots.TakeLeftBehind(running[0])) << "the copy of a running process";
        // Any moment of an edit or of a copy will do; all of them have to hold.
        std::this_thread::sleep_for(std::chrono::microseconds(random() % LatestMicroseconds));
        EXPECT_TRUE(writer.Kill());

        const std::vector<std::string> left = slots.Copies();
        ASSERT_EQ(left.size(), 1U);
        EXPECT_TRUE(slots.TakeLeftBehind(left[0])) << "after " << kill << " kills";
        const std::ptrdiff_t lines = Lines(folder.Content("unsaved-001.QVX"));
        EXPECT_GT(lines, 0) << "after " << kill << " kills";
        EXPECT_EQ(lines % 100, 0) << "after " << kill << " kills";
    }
}

TEST(RecoveryCopy, KeepsItsPlaceUntilItIsDealtWith) {
    const test::TemporaryFolder folder;
    const std::unique_ptr<Files> files = MakeFiles();
    RecoverySlots slots(*files, folder.Path());
    test::KilledWriter first(QUAVIX_RECOVERY_CHILD, folder.Path());
    ASSERT_TRUE(first.HasWritten());
    EXPECT_TRUE(first.Kill());
    test::KilledWriter second(QUAVIX_RECOVERY_CHILD, folder.Path());
    ASSERT_TRUE(second.HasWritten());
    const std::vector<std::string> copies = slots.Copies();
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_TRUE(slots.TakeLeftBehind(copies[0]));
    EXPECT_FALSE(slots.TakeLeftBehind(copies[1]));
}

}  // namespace
}  // namespace quavix
