// SPDX-License-Identifier: MIT
#include <chrono>
#include <cstdint>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "killed_writer.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

/// True if the text is one complete song of the child.
bool IsWholeSong(const std::string& text) {
    const std::size_t music = text.find("//Length Note1 Note2\r\n");
    if (!text.starts_with("Quavix by Dastrel-204 file format\r\n") || music == std::string::npos)
        return false;
    constexpr std::string_view Comment = "//Length Note1 Note2\r\n";
    constexpr std::string_view LastLine = "Whole - - -\r\n";
    const std::string_view lines = std::string_view(text).substr(music + Comment.size());
    const std::size_t lineLength = lines.find('\n') + 1;
    if (!lines.ends_with(LastLine) || lineLength == 0)
        return false;
    const std::string_view first = lines.substr(0, lineLength);
    const auto song = static_cast<std::size_t>(first[first.find(" C") + 2] - '0');
    constexpr std::size_t LinesMore = 3000;
    return lines.size() == (song + 1) * LinesMore * lineLength + LastLine.size();
}

TEST(SongSaver, LeavesACompleteSongWheneverItIsKilled) {
    const test::TemporaryFolder folder;
    constexpr int Kills = 100;
    constexpr int LatestMicroseconds = 8000;
    std::minstd_rand random(20);
    for (int kill = 0; kill < Kills; ++kill) {
        test::KilledWriter saver(QUAVIX_SONG_SAVER_CHILD, folder.File("song.QVX"));
        ASSERT_TRUE(saver.HasWritten());
        // Any moment of a save will do; which ones these are makes no difference to what has to hold.
        std::this_thread::sleep_for(std::chrono::microseconds(random() % LatestMicroseconds));
        EXPECT_TRUE(saver.Kill());
        ASSERT_TRUE(IsWholeSong(folder.Content("song.QVX"))) << "after " << kill << " kills";
    }
}

TEST(SongSaver, LeavesACompleteSongWhenSeveralProcessesSaveTheSameFile) {
    const test::TemporaryFolder folder;
    const std::string file = folder.File("song.QVX");
    test::KilledWriter one(QUAVIX_SONG_SAVER_CHILD, file);
    test::KilledWriter two(QUAVIX_SONG_SAVER_CHILD, file);
    test::KilledWriter three(QUAVIX_SONG_SAVER_CHILD, file);
    ASSERT_TRUE(one.HasWritten() && two.HasWritten() && three.HasWritten());
    constexpr int Changes = 50;
    std::string last;
    for (int changes = 0; changes < Changes;) {
        std::string now = folder.Content("song.QVX");
        ASSERT_TRUE(IsWholeSong(now)) << "after " << changes << " changes";
        if (now != last)
            ++changes;
        last = std::move(now);
    }
    // Every child is still saving, so no save has failed.
    EXPECT_TRUE(one.Kill());
    EXPECT_TRUE(two.Kill());
    EXPECT_TRUE(three.Kill());
    EXPECT_TRUE(IsWholeSong(folder.Content("song.QVX")));
}

}  // namespace
}  // namespace quavix
