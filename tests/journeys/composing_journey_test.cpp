// SPDX-License-Identifier: MIT
#include <sstream>

#include <gtest/gtest.h>

#include "songfile/save_load.h"
#include "support/simulated_desktop.h"

namespace quavix {
namespace {

const char* const Song = "/songs/mine.QVX";

/// The program from its start to its end, without a window.
struct Session : test::SimulatedDesktop, SaveLoadView {
    explicit Session(const std::string& commandLine, const std::string& songOnDisk = {})
        : SimulatedDesktop(commandLine) {
        if (!songOnDisk.empty())
            Disk.Put(Song, songOnDisk);
        Start();
    }

    void ShowSaveLoadForm(bool) override {}
    void EnableMainForm(bool) override {}
    void BringMainFormToFront() override {}

    /// Plays the song once, and returns its sounds without their times, which depend on the start.
    std::string Listen() {
        Timeline.Clear();
        App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
        App.Playing.PlaybackEngine.PlayAllButton_Click();
        std::istringstream lines(Timeline.Text("speaker"));
        std::string heard;
        for (std::string line; std::getline(lines, line);)
            heard += line.substr(line.find(' ') + 1) + "\n";
        return heard;
    }

    SaveLoad Choice{*this, App.Storage.SongDocument};
};

TEST(Composing, FromNothingToASongThatSoundsTheSameWhenItIsOpenedAgain) {
    Session first("");
    for (const std::int32_t key : {12, 17, 19})
        first.App.Playing.PianoKeys.PianoKey_Click(key);
    EXPECT_EQ(first.SongText(), "1/8 C4 - -\n1/8 F4 - -\n1/8 G4 - -\n");
    first.App.Playing.PlaybackEngine.MainList_ItemClick(2);
    first.App.Editing.ListEditing.Command1_Click();
    first.App.Fields.Entry.NoteLengthCombo = 2;
    first.App.Playing.PianoKeys.PianoKey_Click(14);
    EXPECT_EQ(first.SongText(), "1/8 C4 - -\nQuarter D4 - -\n> 1/8 G4 - -\n");
    first.App.Playing.PlaybackEngine.MainList_ItemClick(2);
    first.App.Fields.Entry.ModDottedCheck = true;
    first.App.Playing.PlaybackEngine.MainList_ItemClick(1);
    first.App.Fields.Entry.NoteReplaceCheck = true;
    first.App.Fields.Entry.AddNote2Option = true;
    first.App.Playing.PianoKeys.PianoKey_Click(16);
    EXPECT_EQ(first.SongText(), "1/8 C4 E4 -\n> Quarter D4 - Dot\n1/8 G4 - -\n");
    const std::string heard = first.Listen();
    EXPECT_TRUE(heard.ends_with("speaker 294 Hz 568 ms\nspeaker 392 Hz 182 ms\n")) << heard;

    first.Picker.AnswerNext(Song);
    first.Choice.SaveLoadButton_Click();
    first.Choice.SaveButton_Click();
    ASSERT_TRUE(first.App.Storage.SongDocument.MayClose());
    first.Desktop.CloseProgram();
    EXPECT_NE(first.Timeline.Text("process ends"), "");
    EXPECT_TRUE(first.Boxes.Shown().empty());

    Session next("\"" + std::string(Song) + "\"", first.Disk.Content(Song));
    EXPECT_EQ(next.SongText(), "1/8 C4 E4 -\nQuarter D4 - Dot\n1/8 G4 - -\n");
    EXPECT_EQ(next.App.Storage.SongDocument.FileName().Get(), Song);
    EXPECT_EQ(next.App.Editing.PositionDisplay.lblPlayPos.Get(), "01 05/08");
    EXPECT_EQ(next.Listen(), heard);
}

}  // namespace
}  // namespace quavix
