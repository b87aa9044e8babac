// SPDX-License-Identifier: MIT
#include "songfile/song_reader.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"
#include "support/shown_dialogs.h"

namespace quavix {
namespace {

using test::Header;
using test::Song;
using test::SongProgram;

constexpr std::int32_t NoError = 0;

/// Number of the run-time error that a load ends in.
std::int32_t ErrorOfLoading(SongProgram& p) {
    try {
        p.App.Storage.SongReader.ActuallyLoadMusic(Song);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return NoError;
}

TEST(SongReader, BringsASavedSongBackWhole) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -", "Half E4 G4 Dot", "1/8 - A3 Tri", "Whole - - -"});
    p.App.Fields.Entry.NoteClickPlayCheck = false;
    p.App.Fields.Entry.AddNote1Option = false;
    p.App.Fields.Entry.AddNote2Option = true;
    p.App.Fields.Song.BeatsPerBar.Set(7);
    const std::string saved = p.Saved();
    SongProgram other;
    other.LoadFile(saved);
    EXPECT_EQ(other.Rows(), "Quarter|C4||\nHalf|E4|G4|Dot\n1/8||A3|Tri\nWhole|||\n");
    EXPECT_EQ(other.Saved(), saved);
    EXPECT_TRUE(other.Boxes.Shown().empty());
}

TEST(SongReader, KeepsNothingOfTheSongBefore) {
    SongProgram p;
    p.LoadMusic("Half C4 -\r\n");
    p.LoadMusic("Half C4 -\r\n1/8 D4 E4 Dot\r\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\n1/8|D4|E4|Dot\n");
}

TEST(SongReader, LogsASmallLoadLineByLine) {
    SongProgram p;
    p.App.Log.Enable();
    p.Load(
        "Revision 148\r\n//BPM 3\r\nBPM 120\r\nNoteReplace 1\r\nAddNote2 1 \r\nMUSICLISTSTART\r\n//x\r\n"
        "Half C4 - -\r\nBPM 1 2\r\n");
    EXPECT_EQ(p.LogText(),
              "    ActuallyLoadMusic(\"/songs/song.QVX\") - START\n"
              "    Removing new-line chars from value of each index in SplitFile()\n"
              "    GetSettingValue(\"BPM 120\")\n"
              "    GetSettingValue(\"AddNote2 1 \")\n"
              "    Loading music list\n"
              "    EndOfLoadMusic\n"
              "    ActuallyLoadMusic() - END\n\n");
    EXPECT_EQ(p.App.Log.LogIndent(), 0);
    EXPECT_EQ(p.Timeline.Text(),
              "0.0000 loading shown\n"
              "0.0000 loading text Loading...\n"
              "0.0000 loading hidden\n");
}

TEST(SongReader, AsksForTheFileAndLoadsIt) {
    SongProgram p;
    p.Disk.Put(Song, Header + "BPM 77\r\n");
    p.App.Log.Enable();
    p.Picker.AnswerNext(Song);
    p.App.Storage.SongReader.LoadMusic();
    EXPECT_EQ(p.App.Fields.Song.BPM, 77);
    test::ExpectOnlyDialog(p.Picker, {.Title = "Loading music / config",
                                      .Filter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*",
                                      .FileMustExist = true,
                                      .HideReadOnly = true});
    EXPECT_TRUE(p.LogText().starts_with("FileExists(\"/songs/song.QVX\") = TRUE\n    ActuallyLoadMusic("));
}

TEST(SongReader, DoesNothingWhenTheDialogIsCancelled) {
    SongProgram p;
    p.App.Log.Enable();
    p.SetSong({"Quarter C4 - -"});
    p.Picker.AnswerNext("");
    p.App.Storage.SongReader.LoadMusic();
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_EQ(p.LogText(), "");
}

TEST(SongReader, TellsThatAChosenFileDoesNotExist) {
    SongProgram p;
    p.Picker.AnswerNext(Song);
    p.App.Storage.SongReader.LoadMusic();
    test::ExpectOnlyBox(p.Boxes, {.Title = "Can't open file!",
                                  .Text = "The file you want to open...\n/songs/song.QVX\n...can't be seen.",
                                  .Icon = BoxIcon::Warning,
                                  .Buttons = BoxButtons::Ok});
    EXPECT_TRUE(p.Timeline.Text("loading").empty());
}

TEST(SongReader, RaisesTheFileErrorOfAFileThatCannotBeOpenedAndChangesNothing) {
    const struct {
        std::errc Error;
        std::int32_t Number;
    } cases[] = {{std::errc::no_such_file_or_directory, RuntimeError::FileNotFound},
                 {std::errc::is_a_directory, RuntimeError::PathFileAccessError},
                 {std::errc::permission_denied, RuntimeError::PermissionDenied}};
    for (const auto& expected : cases) {
        SongProgram p;
        p.App.Log.Enable();
        p.SetSong({"Quarter C4 - -"});
        p.App.Fields.Song.BeatsPerBar.Set(3);
        p.Disk.FailReading(Song, expected.Error);
        EXPECT_EQ(ErrorOfLoading(p), expected.Number);
        EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
        EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 3);
        EXPECT_EQ(p.Timeline.Text("loading"), "");
        EXPECT_EQ(p.App.Log.LogIndent(), 0);
    }
}

TEST(SongReader, AsksAboutAFileWithoutTheHeaderAndLeavesEverythingOnNo) {
    SongProgram p;
    p.App.Log.Enable();
    p.SetSong({"Quarter C4 - -"});
    p.App.Fields.Song.BeatsPerBar.Set(3);
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.LoadFile("quavix by Dastrel-204 file format\r\nBPM 99\r\nMUSICLISTSTART\r\n");
    test::ExpectOnlyBox(
        p.Boxes,
        {.Title = "Probably weird file format",
         .Text =
             "This file doesn't contain this text at the start of it which says that it is in this program's "
             "format: \nQuavix by Dastrel-204 file format\n\nOf course, apart from that it could still be in "
             "this program's format.\nTry to load it?",
         .Icon = BoxIcon::Warning,
         .Buttons = BoxButtons::YesNo});
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 3);
    EXPECT_EQ(p.App.Fields.Song.BPM, 140);
    EXPECT_FALSE(p.Loading.InfoShown);
    EXPECT_EQ(p.LogText(),
              "    ActuallyLoadMusic(\"/songs/song.QVX\") - START\n"
              "    File doesn't contain 'format text' at the start\n"
              "    ActuallyLoadMusic() - END\n\n");
}

TEST(SongReader, LoadsAFileWithoutTheHeaderOnYes) {
    SongProgram p;
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.LoadFile("BPM 99\r\nMUSICLISTSTART\r\nHalf C4 - -\r\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
    EXPECT_EQ(p.Rows(), "Half|C4||\n");
}

TEST(SongReader, AsksAboutAnEmptyFileAndAboutAByteOrderMark) {
    for (const std::string& content : {std::string(), "\xEF\xBB\xBF" + Header}) {
        SongProgram p;
        p.SetSong({"Quarter C4 - -"});
        p.Boxes.AnswerNext(BoxAnswer::Yes);
        p.LoadFile(content);
        EXPECT_EQ(p.Boxes.Shown().size(), 1U);
        EXPECT_EQ(p.App.List.Count(), 0);
    }
}

TEST(SongReader, EmptiesTheListForAFileOfSettingsAlone) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.App.List.Select(1);
    p.Load("BPM 99\r\nQuarter D4 - -\r\n");
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_EQ(p.App.List.SelectedItem(), -1);
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
}

TEST(SongReader, TakesTheMusicStartInAnyCaseAndWithAnythingBehindIt) {
    SongProgram p;
    p.Load("musicListStartAndMore\r\nBPM 99 - -\r\n");
    EXPECT_EQ(p.Rows(), "BPM|99||\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 140);
}

TEST(SongReader, TellsThatAFileIsFromANewerVersionAndGoesOn) {
    SongProgram p;
    p.App.Log.Enable();
    p.Load("Revision 999\r\nBPM 99\r\n");
    test::ExpectOnlyBox(
        p.Boxes,
        {.Title = "File was made with newer program version",
         .Text =
             "This file was made with a newer version of Quavix than you're using. As long as it doesn't contain "
             "info about features only in a newer version, there should be no problem opening it with this "
             "version.\r\n\r\nHowever, I'll have made the newer version for a reason, so I recommend that you "
             "download and use it instead.\r\n\r\nYou can get it from https://quavix.example/download",
         .Icon = BoxIcon::None,
         .Buttons = BoxButtons::Ok});
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
    EXPECT_NE(p.LogText().find("    File was made with newer program version\n"), std::string::npos);
}

TEST(SongReader, SaysNothingAboutOtherRevisions) {
    SongProgram p;
    p.Load("Revision 148\r\nrevision 1\r\nRevision abc\r\nRevision\r\nRevision 149x\r\nARevision 999\r\n");
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(SongReader, ComparesTheRevisionWhereverAndHoweverItIsWritten) {
    SongProgram p;
    p.Load("REVISION149\r\nBPM 3\r\nrevision  1e3 \r\n");
    EXPECT_EQ(p.Boxes.Shown().size(), 2U);
}

TEST(SongReader, PutsNotesIntoUpperCaseAndKeepsTheRest) {
    SongProgram p;
    p.LoadMusic("Half c4 e4 Dot extra\r\nquarter - f#3 tri\r\n");
    EXPECT_EQ(p.Rows(), "Half|C4|E4|Dot extra\nquarter||F#3|tri\n");
}

TEST(SongReader, TakesThreeFieldsAndEmptyFields) {
    SongProgram p;
    p.LoadMusic(
        "Half C4 E4\r\nHalf C4 E4 \r\nHalf C4 \r\nHalf  E4\r\n  E4 Dot\r\n- - - -\r\nHalf C4 E4  \r\n");
    EXPECT_EQ(p.Rows(), "Half|C4|E4|\nHalf|C4|E4|\nHalf|C4||\nHalf||E4|\n||E4|Dot\n-|||\nHalf|C4|E4| \n");
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(SongReader, SkipsCommentsAndEmptyLines) {
    SongProgram p;
    p.LoadMusic("//Length Note1 Note2\r\n\r\nHalf C4 - -\r\n\r\n//x\r\n\r\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\n");
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(SongReader, LoadsEveryKindOfLineEndTheSame) {
    for (const std::string end : {"\r\n", "\n"}) {
        for (const std::string& last : {end, std::string()}) {
            SongProgram p;
            p.LoadFile(Header.substr(0, Header.size() - 2) + end + "BPM 99" + end + "MUSICLISTSTART" + end +
                       "Half C4 - -" + end + "Half D4 E4 Dot" + last);
            EXPECT_EQ(p.Rows(), "Half|C4||\nHalf|D4|E4|Dot\n");
            EXPECT_EQ(p.App.Fields.Song.BPM, 99);
        }
    }
}

TEST(SongReader, TakesOneCarriageReturnFromALinesEndAndNoneFromItsMiddle) {
    SongProgram p;
    p.LoadMusic("Half C4 - a\rb\r\r\nWhole - - -\r");
    EXPECT_EQ(p.Rows(), "Half|C4||a\rb\r\nWhole|||\n");
}

TEST(SongReader, AsksAboutALineOfTwoFieldsAndKeepsItsLength) {
    SongProgram p;
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.App.Log.Enable();
    p.LoadMusic("Quarter c4\r\nHalf D4 -\r\n");
    EXPECT_EQ(p.Rows(), "Quarter|||\nHalf|D4||\n");
    test::ExpectOnlyBox(
        p.Boxes,
        {.Title = "Music list line error in save file",
         .Text =
             "After 'MUSICLISTSTART' in the save file, there should be only lines of \nLength Note1 Note2\r\n"
             "OR:Length Note1 Note2 Mod\nHowever, there are less than 3 things on this line separated by a "
             "space. \nThe line is: \nQuarter c4\nThis line will be skipped.\n\nCarry on trying to load the "
             "file?",
         .Icon = BoxIcon::Warning,
         .Buttons = BoxButtons::OkCancel});
    EXPECT_NE(p.LogText().find("    Loading music list\n    LoadMusicListLineError(ERRORLINE:Quarter c4)\n"
                               "    EndOfLoadMusic\n"),
              std::string::npos);
}

TEST(SongReader, AsksAboutALineOfOneFieldAndKeepsAnEmptyRow) {
    SongProgram p;
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.LoadMusic("Whole\r\nHalf D4 -\r\n");
    EXPECT_EQ(p.Rows(), "|||\nHalf|D4||\n");
}

TEST(SongReader, EndsTheMusicAtAMalformedLineOnCancel) {
    SongProgram p;
    p.App.Log.Enable();
    p.Boxes.AnswerNext(BoxAnswer::Ok);
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    p.LoadMusic("Half C4 - -\r\nWhole\r\nHalf \r\nHalf D4 -\r\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\n|||\nHalf|||\n");
    EXPECT_TRUE(p.LogText().ends_with("    EndOfLoadMusic\n    ActuallyLoadMusic() - END\n\n"));
    EXPECT_FALSE(p.Loading.InfoShown);
}

TEST(SongReader, KeepsTheOldListAndTheSettingsBeforeABadOne) {
    SongProgram p;
    p.App.Log.Enable();
    p.SetSong({"Quarter C4 - -"});
    p.Disk.Put(Song,
               Header + "BPM 99\r\nKeyboardOctave 256\r\nNoteLength 1\r\nMUSICLISTSTART\r\nHalf D4 -\r\n");
    EXPECT_EQ(ErrorOfLoading(p), RuntimeError::Overflow);
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
    EXPECT_EQ(p.App.Fields.Entry.NoteLengthCombo, 3);
    EXPECT_FALSE(p.Loading.InfoShown);
    EXPECT_EQ(p.App.Log.LogIndent(), 0);
    EXPECT_TRUE(p.LogText().ends_with("    ActuallyLoadMusic() - END\n\n"));
}

}  // namespace
}  // namespace quavix
