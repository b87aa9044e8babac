// SPDX-License-Identifier: MIT
#include <algorithm>

#include <gtest/gtest.h>

#include "songfile/song_files.h"

// Other handlers that run while a song is loaded.
namespace quavix {
namespace {

using test::Header;
using test::SongProgram;

/// Follows a list by its notifications, as a view does.
class ListView : public MusicListObserver {
  public:
    explicit ListView(MusicList& list) : list_(list) { list_.AddObserver(*this); }
    ~ListView() override { list_.RemoveObserver(*this); }
    void RowsInserted(std::span<const std::int32_t> rows) override {
        Rows += static_cast<std::int32_t>(rows.size());
    }
    void BeforeReset() override { InReset = true; }
    void Reset() override {
        InReset = false;
        Rows = list_.Count();
    }
    std::int32_t Rows = 0;
    bool InReset = false;

  private:
    MusicList& list_;
};

TEST(SongReader, ShowsAWholeListWhileTheQuestionOfALineIsOpen) {
    SongProgram p;
    ListView view(p.App.List);
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.Boxes.WhileOpen([&] {
        EXPECT_FALSE(view.InReset);
        EXPECT_EQ(view.Rows, 2);
        EXPECT_EQ(p.Rows(), "Half|C4||\nWhole|||\n");
    });
    p.LoadMusic("Half C4 - -\r\nWhole x\r\nHalf D4 -\r\n");
    EXPECT_FALSE(view.InReset);
    EXPECT_EQ(view.Rows, 3);
}

TEST(SongReader, AddsTheRemainingLinesToAListThatAHandlerChanged) {
    SongProgram p;
    ListView view(p.App.List);
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.Boxes.WhileOpen([&] {
        p.App.List.Clear();
        p.App.List.Append("1/8", "A1", "", "");
    });
    p.LoadMusic("Half C4 - -\r\nWhole x\r\nHalf D4 -\r\n");
    EXPECT_EQ(p.Rows(), "1/8|A1||\nHalf|D4||\n");
    EXPECT_EQ(view.Rows, 2);
}

TEST(SongReader, SurvivesAnotherLoadInsideTheQuestionOfALine) {
    SongProgram p;
    ListView view(p.App.List);
    p.Disk.Put("/songs/other.QVX", Header + "MUSICLISTSTART\r\n1/16 B2 -\r\n");
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.Boxes.WhileOpen([&] { p.App.Storage.SongReader.ActuallyLoadMusic("/songs/other.QVX"); });
    p.LoadMusic("Half C4 - -\r\nWhole x\r\nHalf D4 -\r\n");
    EXPECT_EQ(p.Rows(), "1/16|B2||\nHalf|D4||\n");
    EXPECT_EQ(view.Rows, 2);
}

std::string ManyLines(std::int32_t count) {
    std::string lines;
    for (std::int32_t i = 0; i < count; ++i)
        lines += "Half C4 - -\n";
    return lines;
}

TEST(SongReader, ReportsItsProgressWhileTheListIsConsistent) {
    SongProgram p;
    ListView view(p.App.List);
    p.Loading.OnProgress = [&](double) {
        EXPECT_FALSE(view.InReset);
        EXPECT_EQ(view.Rows, p.App.List.Count());
        return true;
    };
    p.LoadMusic(ManyLines(100'000));
    EXPECT_EQ(p.App.List.Count(), 100'000);
    EXPECT_GE(p.Loading.Ratios.size(), 5U);
    EXPECT_LE(p.Loading.Ratios.size(), 7U);
    EXPECT_TRUE(std::is_sorted(p.Loading.Ratios.begin(), p.Loading.Ratios.end()));
    EXPECT_GT(p.Loading.Ratios.front(), 0.0);
    EXPECT_LE(p.Loading.Ratios.back(), 1.0);
}

TEST(SongReader, KeepsTheLinesLoadedSoFarWhenItIsStopped) {
    SongProgram p;
    p.App.Log.Enable();
    p.Loading.OnProgress = [&](double ratio) { return ratio < 0.7; };
    p.LoadMusic(ManyLines(100'000));
    EXPECT_GT(p.App.List.Count(), 30'000);
    EXPECT_LT(p.App.List.Count(), 70'000);
    EXPECT_FALSE(p.Loading.InfoShown);
    EXPECT_TRUE(p.LogText().ends_with("    EndOfLoadMusic\n    ActuallyLoadMusic() - END\n\n"));
}

TEST(SongReader, ShowsNoProgressForASmallSong) {
    SongProgram p;
    p.LoadMusic(ManyLines(1000));
    EXPECT_TRUE(p.Loading.Ratios.empty());
}

}  // namespace
}  // namespace quavix
