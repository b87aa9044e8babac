// SPDX-License-Identifier: MIT
#include "songfile/save_load.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"

namespace quavix {
namespace {

using test::Song;

class RecordedSaveLoadView : public SaveLoadView {
  public:
    RecordedSaveLoadView(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}
    void ShowSaveLoadForm(bool show) override { Record(show ? "window shown" : "window hidden"); }
    void EnableMainForm(bool enable) override { Record(enable ? "main enabled" : "main disabled"); }
    void BringMainFormToFront() override { Record("main to front"); }

  private:
    void Record(const char* event) { timeline_.Record(time_.Now(), event); }
    SimulatedTime& time_;
    Timeline& timeline_;
};

struct Choosing : test::SongProgram {
    RecordedSaveLoadView View{Time, Timeline};
    SaveLoad Window{View, App.Storage.SongDocument};
};

const std::string Closed =
    "0.0000 main enabled\n"
    "0.0000 window hidden\n"
    "0.0000 main to front\n";

TEST(SaveLoad, DisablesTheMainWindowBeforeItShows) {
    Choosing p;
    p.Window.SaveLoadButton_Click();
    EXPECT_EQ(p.Timeline.Text(), "0.0000 main disabled\n0.0000 window shown\n");
}

TEST(SaveLoad, CancelClosesIt) {
    Choosing p;
    p.Window.CancelButton_Click();
    EXPECT_EQ(p.Timeline.Text(), Closed);
}

TEST(SaveLoad, SavesAndThenCloses) {
    Choosing p;
    p.Picker.AnswerNext(Song);
    p.Window.SaveButton_Click();
    EXPECT_EQ(p.Timeline.Text(), "0.0000 file dialog save \"Saving music and config\"\n" + Closed);
    EXPECT_TRUE(p.Disk.Has(Song));
    EXPECT_EQ(p.App.Storage.SongDocument.FileName().Get(), Song);
}

TEST(SaveLoad, LoadsAndThenCloses) {
    Choosing p;
    p.Disk.Put(Song, test::Header + "MUSICLISTSTART\r\nQuarter C4 -\r\n");
    p.Picker.AnswerNext(Song);
    p.Window.LoadButton_Click();
    EXPECT_EQ(p.Timeline.Text(),
              "0.0000 file dialog open \"Loading music / config\"\n"
              "0.0000 loading shown\n0.0000 loading text Loading...\n0.0000 loading hidden\n" +
                  Closed);
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
}

TEST(SaveLoad, AsksBeforeALoadReplacesUnsavedWork) {
    Choosing p;
    p.App.List.Append("Half", "D4", "", "");
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    p.Window.LoadButton_Click();
    EXPECT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_EQ(p.Timeline.Text().find("file dialog"), std::string::npos);
    EXPECT_EQ(p.Rows(), "Half|D4||\n");
    EXPECT_NE(p.Timeline.Text().find(Closed), std::string::npos);
}

TEST(SaveLoad, ClosesWhenTheFileDialogIsCancelled) {
    Choosing p;
    p.Picker.AnswerNext("");
    p.Window.SaveButton_Click();
    p.Picker.AnswerNext("");
    p.Window.LoadButton_Click();
    EXPECT_EQ(p.Timeline.Text("main") + p.Timeline.Text("window"),
              "0.0000 main enabled\n0.0000 main to front\n0.0000 main enabled\n0.0000 main to front\n"
              "0.0000 window hidden\n0.0000 window hidden\n");
}

TEST(SaveLoad, ClosesWhenSavingOrLoadingRaisesAnError) {
    Choosing p;
    p.Disk.SetSpaceLeft(0);
    p.Picker.AnswerNext(Song);
    EXPECT_THROW(p.Window.SaveButton_Click(), RuntimeError);
    EXPECT_TRUE(p.Timeline.Text().ends_with(Closed));

    p.Timeline.Clear();
    p.Disk.Put(Song, test::Header);
    p.Disk.FailReading(Song, std::errc::permission_denied);
    p.Picker.AnswerNext(Song);
    EXPECT_THROW(p.Window.LoadButton_Click(), RuntimeError);
    EXPECT_TRUE(p.Timeline.Text().ends_with(Closed));
}

TEST(SaveLoad, ShowsItsButtonsAgainAfterALoadByteByByte) {
    Choosing p;
    p.Disk.Put(Song, test::Header + "//\xFF\r\n");
    p.Picker.AnswerNext(Song);
    p.Window.LoadButton_Click();
    EXPECT_TRUE(p.Loading.InfoText.starts_with("Loading byte-by-byte..."));
    EXPECT_FALSE(p.Loading.InfoShown);
}

}  // namespace
}  // namespace quavix
