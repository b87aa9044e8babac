// SPDX-License-Identifier: MIT
#include "songfile/song_document.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"

namespace quavix {
namespace {

using test::Header;
using test::Song;

const std::string Other = "/songs/other.QVX";

struct Documented : test::SongProgram {
    SongDocument& Document = App.Storage.SongDocument;

    void PutSong(const std::string& lines) { Disk.Put(Song, Header + "MUSICLISTSTART\r\n" + lines); }
    bool Modified() { return Document.Modified(); }
    std::string Name() { return Document.FileName(); }
    /// A song of the file, with a change that isn't saved.
    void LoadAndChange() {
        PutSong("Quarter C4 -\r\n");
        Document.LoadFile(Song);
        App.List.SetText(1, Cell::Note1, "D4");
    }
};

TEST(SongDocument, StartsWithoutANameAndUnmodified) {
    Documented p;
    EXPECT_EQ(p.Name(), "");
    EXPECT_FALSE(p.Modified());
}

TEST(SongDocument, IsModifiedByLinesAndBySettingsThatAreHeardButNotBySelecting) {
    const std::vector<std::function<void(Documented&)>> changes{
        [](Documented& p) { p.App.List.Append("Half", "", "", ""); },
        [](Documented& p) { p.App.List.Remove(1); },
        [](Documented& p) { p.App.List.SetText(1, Cell::Mod, "Dot"); },
        [](Documented& p) { p.App.Fields.Song.BPM.Set(99); },
        [](Documented& p) { p.App.Fields.Song.BeatsPerBar.Set(3); },
        [](Documented& p) { p.App.Fields.Song.NoteSilenceRatio.Set(50); },
        [](Documented& p) { p.App.Fields.Song.AlternateTime.Type("33"); },
        [](Documented& p) { p.App.Fields.Song.PlayNote1Check = false; },
        [](Documented& p) { p.App.Fields.Song.PlayNote2Check = false; },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Documented p;
        p.PutSong("Quarter C4 -\r\n");
        p.Document.LoadFile(Song);
        p.App.List.Select(1);
        p.App.Fields.Entry.NoteLengthCombo = 1;
        EXPECT_FALSE(p.Modified());
        changes[i](p);
        EXPECT_TRUE(p.Modified()) << i;
    }
}

TEST(SongDocument, HasItsFullNameSoThatARecoveredCopyIsSavedWhereItWas) {
    Documented p;
    p.Disk.CurrentFolder = "/home/me/";
    p.Disk.Put("song.QVX", Header);
    p.Document.LoadFile("song.QVX");
    EXPECT_EQ(p.Name(), "/home/me/song.QVX");
    p.Picker.AnswerNext("other.QVX");
    p.Document.SaveAs();
    EXPECT_EQ(p.Name(), "/home/me/other.QVX");
}

TEST(SongDocument, StopsTheMusicWhenAnotherSongComes) {
    for (const bool load : {true, false}) {
        Documented p;
        p.PutSong("Quarter C4 -\r\n");
        p.Document.LoadFile(Song);
        p.Disk.Put(Other, Header + "MUSICLISTSTART\r\nQuarter D4 -\r\nQuarter E4 -\r\n");
        p.Time.At(100, [&] {
            if (load)
                p.Document.LoadFile(Other);
            else
                p.Document.New();
        });
        p.App.Playing.PlaybackEngine.PlayAllButton_Click();
        EXPECT_FALSE(p.App.Fields.State.MusicIsPlaying);
        EXPECT_TRUE(p.Boxes.Shown().empty());
        EXPECT_LT(p.Time.Now(), SimulatedTime::CountsPerSecond);
        EXPECT_EQ(p.App.List.Count(), load ? 2 : 0);
    }
}

TEST(SongDocument, TakesItsNameFromLoadingAndSaving) {
    Documented p;
    p.PutSong("Quarter C4 -\r\n");
    p.Picker.AnswerNext(Song);
    EXPECT_TRUE(p.Document.Load());
    EXPECT_EQ(p.Name(), Song);
    p.Picker.AnswerNext(Other);
    EXPECT_TRUE(p.Document.SaveAs());
    EXPECT_EQ(p.Name(), Other);
}

TEST(SongDocument, SavesUnderItsNameWithoutAnyQuestion) {
    Documented p;
    p.LoadAndChange();
    EXPECT_TRUE(p.Document.Save());
    EXPECT_FALSE(p.Modified());
    EXPECT_NE(p.Disk.Content(Song).find("Quarter D4 - -"), std::string::npos);
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_TRUE(p.Picker.Shown().empty());
}

TEST(SongDocument, AsksForANameWhereItHasNone) {
    Documented p;
    p.App.List.Append("Quarter", "C4", "", "");
    p.Picker.AnswerNext("");
    EXPECT_FALSE(p.Document.Save());
    EXPECT_TRUE(p.Modified());
    p.Picker.AnswerNext(Song);
    EXPECT_TRUE(p.Document.Save());
    EXPECT_FALSE(p.Modified());
    EXPECT_EQ(p.Name(), Song);
}

TEST(SongDocument, StaysModifiedUnderItsNameWhenItCantBeSaved) {
    Documented p;
    p.LoadAndChange();
    p.Disk.FailWriting(Song, std::errc::permission_denied);
    EXPECT_FALSE(p.Document.Save());
    EXPECT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_TRUE(p.Modified());

    Documented full;
    full.LoadAndChange();
    full.Disk.SetSpaceLeft(0);
    EXPECT_THROW(full.Document.Save(), RuntimeError);
    EXPECT_TRUE(full.Modified());
    EXPECT_EQ(full.Name(), Song);
}

TEST(SongDocument, KeepsItsNameWhenNothingIsLoaded) {
    Documented p;
    p.LoadAndChange();
    p.Picker.AnswerNext("");
    EXPECT_FALSE(p.Document.Load());
    p.Picker.AnswerNext("/missing");
    EXPECT_FALSE(p.Document.Load());
    EXPECT_THROW(p.Document.LoadFile("/missing"), RuntimeError);
    EXPECT_EQ(p.Name(), Song);
    EXPECT_TRUE(p.Modified());
}

// Saving without a question would replace what wasn't loaded.
TEST(SongDocument, HasNoNameWhenLoadingLostSomething) {
    struct Case {
        const char* What;
        std::string Content;
        std::vector<BoxAnswer> Answers;
    };
    const std::vector<Case> cases{
        {"a malformed line", Header + "MUSICLISTSTART\r\nWhole\r\n", {BoxAnswer::Ok}},
        {"stopped at a malformed line", Header + "MUSICLISTSTART\r\nWhole\r\n", {BoxAnswer::Cancel}},
        {"another format", "text\r\n", {BoxAnswer::Yes}},
        {"text repaired", Header + "//\xFF\r\n", {}},
        {"a newer version's", Header + "Revision 999\r\nMUSICLISTSTART\r\n", {}},
    };
    for (const Case& c : cases) {
        Documented p;
        p.Disk.Put(Song, c.Content);
        for (const BoxAnswer answer : c.Answers)
            p.Boxes.AnswerNext(answer);
        EXPECT_TRUE(p.Document.LoadFile(Song)) << c.What;
        EXPECT_EQ(p.Name(), "") << c.What;
        EXPECT_FALSE(p.Modified()) << c.What;
    }
}

TEST(SongDocument, HasNoNameWhenAnErrorEndedLoadingHalfway) {
    Documented p;
    p.LoadAndChange();
    p.Disk.Put(Other, Header + "BPM 100\r\nBPM 99999999999\r\n");
    EXPECT_THROW(p.Document.LoadFile(Other), RuntimeError);
    EXPECT_EQ(p.Name(), "");
    EXPECT_TRUE(p.Modified());
    EXPECT_FALSE(p.Document.IsLoading());
}

TEST(SongDocument, IsLoadingWhileTheLoadersBoxesStandOpen) {
    Documented p;
    p.PutSong("Whole\r\n");
    bool loading = false;
    p.Boxes.WhileOpen([&] { loading = p.Document.IsLoading(); });
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.Document.LoadFile(Song);
    EXPECT_TRUE(loading);
    EXPECT_FALSE(p.Document.IsLoading());
}

TEST(SongDocument, ANewOneIsEmptyInTheTimingOfTheStart) {
    Documented p;
    p.Disk.Put(Song, Header +
                         "BPM 99\r\nTimeSig 3\r\nNoteSilenceRatio 50\r\nAlternateTime 30\r\n"
                         "NoteLength 1\r\nMUSICLISTSTART\r\nQuarter C4 -\r\n");
    p.Document.LoadFile(Song);
    EXPECT_TRUE(p.Document.New());
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_EQ(p.Name(), "");
    EXPECT_FALSE(p.Modified());
    MainFields& fields = p.App.Fields;
    EXPECT_EQ(fields.Song.BPM, 140);
    EXPECT_EQ(fields.Song.BPM.Text(), "140");
    EXPECT_EQ(fields.Song.BeatsPerBar, 4);
    EXPECT_EQ(fields.Song.BeatsPerBar.Text(), "4");
    EXPECT_EQ(fields.Song.BeatsPerBar, 4);
    EXPECT_EQ(fields.Song.NoteSilenceRatio, 90);
    EXPECT_EQ(fields.Song.AlternateTime, 20);
    EXPECT_EQ(fields.Song.AlternateTime.Text(), "20");
    EXPECT_EQ(fields.Entry.NoteLengthCombo, 1);  // how notes are entered is no part of the song
}

TEST(SongDocument, ANewOneAsksAboutUnsavedChanges) {
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel}) {
        Documented p;
        p.LoadAndChange();
        p.Boxes.AnswerNext(answer);
        EXPECT_EQ(p.Document.New(), answer != BoxAnswer::Cancel);
        EXPECT_EQ(p.App.List.Count(), answer == BoxAnswer::Cancel ? 1 : 0);
        const bool saved = p.Disk.Content(Song).find("Quarter D4") != std::string::npos;
        EXPECT_EQ(saved, answer == BoxAnswer::Yes);
        ASSERT_EQ(p.Boxes.Shown().size(), 1U);
        EXPECT_EQ(p.Boxes.Shown()[0].Buttons, BoxButtons::YesNoCancel);
        EXPECT_EQ(p.Boxes.Shown()[0].Text,
                  "This song has changes that haven't been saved:\n/songs/song.QVX\n\nSave it now?");
    }
}

TEST(SongDocument, MayCloseWithoutAQuestionWhenNothingIsUnsaved) {
    Documented p;
    EXPECT_TRUE(p.Document.MayClose());
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(SongDocument, MayNotCloseIfSavingFails) {
    Documented p;
    p.App.List.Append("Quarter", "C4", "", "");
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.Picker.AnswerNext("");
    EXPECT_FALSE(p.Document.MayClose());
    EXPECT_EQ(p.Boxes.Shown()[0].Text, "This song hasn't been saved yet.\n\nSave it now?");
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    EXPECT_FALSE(p.Document.MayClose());
    p.Boxes.AnswerNext(BoxAnswer::No);
    EXPECT_TRUE(p.Document.MayClose());
}

TEST(SongDocument, AsksOnceAtATime) {
    Documented p;
    p.App.List.Append("Quarter", "C4", "", "");
    p.Boxes.WhileOpen([&] { EXPECT_FALSE(p.Document.MayClose()); });
    p.Boxes.AnswerNext(BoxAnswer::No);
    EXPECT_TRUE(p.Document.MayClose());
    EXPECT_EQ(p.Boxes.Shown().size(), 1U);
}

TEST(SongDocument, ThePositionIsThatOfTheSongThatWasLoadedOrRecoveredOrBegun) {
    const std::vector<std::function<void(Documented&)>> loads{
        [](Documented& p) {
            p.Picker.AnswerNext(Song);
            p.Document.Load();
        },
        [](Documented& p) { p.Document.LoadFile(Song); },
        [](Documented& p) { p.Document.Recover(Song, Other); },
    };
    for (const auto& load : loads) {
        Documented p;
        p.PutSong("Whole C4 -\r\nWhole D4 -\r\nQuarter D4 -\r\n");
        load(p);
        EXPECT_EQ(p.App.Editing.PositionDisplay.lblPlayBar.Get(), "003");
        EXPECT_EQ(p.App.Editing.PositionDisplay.lblPlayPos.Get(), "01 01/04");
        p.Boxes.AnswerNext(BoxAnswer::No);
        p.Document.New();
        EXPECT_EQ(p.App.Editing.PositionDisplay.lblPlayBar.Get(), "001");
    }
}

}  // namespace
}  // namespace quavix
