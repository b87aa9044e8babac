// SPDX-License-Identifier: MIT
#include "songfile/song_writer.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"
#include "songfile/song_format.h"
#include "support/shown_dialogs.h"

namespace quavix {
namespace {

using test::Song;
using test::SongProgram;

const std::string SettingsAtStart =
    "Quavix by Dastrel-204 file format\r\n"
    "Revision 148\r\n"
    "//Pitch and timing settings\r\n"
    "KeyboardOctave 4\r\n"
    "BPM 140\r\n"
    "TimeSig 4\r\n"
    "NoteSilenceRatio 90\r\n"
    "NoteLength 3\r\n"
    "AlternateTime 20\r\n"
    "//Editing settings\r\n"
    "//When key is clicked,\r\n"
    "NoteClickPlay 1\r\n"
    "//Adding note\r\n"
    "NoteClickAdd 1\r\n"
    "AddNote1 1\r\n"
    "AddNote2 0\r\n"
    "NoteReplace 0\r\n"
    "NoteLengthReplace 0\r\n"
    "//Which notes in list to play\r\n"
    "//When a line is clicked,\r\n"
    "ClickPlayNote1 1\r\n"
    "ClickPlayNote2 1\r\n"
    "//When the music is being played,\r\n"
    "PlayNote1 1\r\n"
    "PlayNote2 1\r\n"
    "MUSICLISTSTART\r\n"
    "//Length Note1 Note2\r\n";

TEST(SongWriter, WritesTheWholeFileByteByByte) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -", "Half E4 G4 Dot", "1/8 - A3 Tri", "Whole - - -"});
    EXPECT_EQ(p.Saved(), SettingsAtStart +
                             "Quarter C4 - -\r\n"
                             "Half E4 G4 Dot\r\n"
                             "1/8 - A3 Tri\r\n"
                             "Whole - - -\r\n");
}

TEST(SongWriter, WritesAnEmptyListAsSettingsAlone) {
    SongProgram p;
    EXPECT_EQ(p.Saved(), SettingsAtStart);
}

TEST(SongWriter, WritesEverySettingAsItIs) {
    SongProgram p;
    MainFields& fields = p.App.Fields;
    fields.Entry.KeyboardOctave.Set(7);
    fields.Song.BPM.Set(-5);
    fields.Song.BeatsPerBar.Set(3);
    fields.Song.NoteSilenceRatio.Set(55);
    fields.Entry.NoteLengthCombo = 0;
    fields.Song.AlternateTime.Type("  30 ");
    fields.Entry.NoteClickPlayCheck = false;
    fields.Entry.NoteClickAddCheck = false;
    fields.Entry.AddNote1Option = false;
    fields.Entry.AddNote2Option = true;
    fields.Entry.NoteReplaceCheck = true;
    fields.Entry.NoteLengthReplaceCheck = true;
    fields.Song.ClickPlayNote1Check = false;
    fields.Song.ClickPlayNote2Check = false;
    fields.Song.PlayNote1Check = false;
    fields.Song.PlayNote2Check = false;
    const std::string saved = p.Saved();
    for (const char* line : {"KeyboardOctave 7", "BPM -5", "TimeSig 3", "NoteSilenceRatio 55", "NoteLength 0",
                             "AlternateTime   30 ", "NoteClickPlay 0", "NoteClickAdd 0", "AddNote1 0",
                             "AddNote2 1", "NoteReplace 1", "NoteLengthReplace 1", "ClickPlayNote1 0",
                             "ClickPlayNote2 0", "PlayNote1 0", "PlayNote2 0"})
        EXPECT_NE(saved.find(std::string("\n") + line + "\r\n"), std::string::npos) << line;
}

TEST(SongWriter, AsksForTheNameAndLogsWhatItDoes) {
    SongProgram p;
    p.App.Log.Enable();
    p.Saved();
    test::ExpectOnlyDialog(p.Picker, {.Title = "Saving music and config",
                                      .Filter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*",
                                      .PathMustExist = true});
    EXPECT_EQ(p.LogText(),
              "    SaveMusic() - START\n"
              "    FileExists(\"/songs/saved.QVX\") = FALSE\n"
              "    Opening 34/songs/saved.QVX\", saving\n"
              "    SaveMusic() - END\n\n");
    EXPECT_EQ(p.App.Log.LogIndent(), 0);
}

TEST(SongWriter, WritesNothingWhenTheDialogIsCancelled) {
    SongProgram p;
    p.App.Log.Enable();
    p.Picker.AnswerNext("");
    p.App.Storage.SongWriter.SaveMusic();
    EXPECT_EQ(p.LogText(), "    SaveMusic() - START\n    SaveMusic() - END\n\n");
}

TEST(SongWriter, AsksBeforeItReplacesAFile) {
    SongProgram p;
    p.Disk.Put(Song, "old");
    p.Picker.AnswerNext(Song);
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.App.Storage.SongWriter.SaveMusic();
    EXPECT_EQ(p.Disk.Content(Song), "old");
    test::ExpectOnlyBox(p.Boxes,
                        {.Title = "File already exists",
                         .Text = "The file you want to save this as:\n/songs/song.QVX\n...already exists.\n\n"
                                 "Should this file be replaced?",
                         .Icon = BoxIcon::Warning,
                         .Buttons = BoxButtons::YesNo});

    p.Picker.AnswerNext(Song);
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.App.Storage.SongWriter.SaveMusic();
    EXPECT_EQ(p.Disk.Content(Song), SettingsAtStart);
}

TEST(SongWriter, TellsThatAFileCannotBeOpenedForWriting) {
    SongProgram p;
    p.App.Log.Enable();
    p.Disk.FailWriting(Song, std::errc::permission_denied);
    p.Picker.AnswerNext(Song);
    p.App.Storage.SongWriter.SaveMusic();
    test::ExpectOnlyBox(
        p.Boxes,
        {.Title = "Can't save as this file!",
         .Text = "The file you want to save this as...\r\n/songs/song.QVX\r\n...can't be written to.\r\n\r\n"
                 "It's probably currently being written to by some other program.",
         .Icon = BoxIcon::Warning,
         .Buttons = BoxButtons::Ok});
    EXPECT_FALSE(p.Disk.Has(Song));
    EXPECT_EQ(p.LogText(),
              "    SaveMusic() - START\n"
              "    FileExists(\"/songs/song.QVX\") = FALSE\n"
              "    Opening 34/songs/song.QVX\", saving\n"
              "    SaveMusic() - END\n\n");
}

TEST(SongWriter, RaisesDiskFullAndLeavesTheOldSongWhole) {
    for (const std::uint64_t space : {0U, 100U, 70'000U}) {
        SongProgram p;
        for (int i = 0; i < 20'000; ++i)
            p.App.List.Append("Quarter", "C4", "", "");
        p.Disk.Put(Song, "old");
        p.Disk.SetSpaceLeft(space);
        p.Picker.AnswerNext(Song);
        p.Boxes.AnswerNext(BoxAnswer::Yes);
        try {
            p.App.Storage.SongWriter.SaveMusic();
            ADD_FAILURE() << "no error with " << space << " bytes left";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), RuntimeError::DiskFull);
        }
        EXPECT_EQ(p.Disk.Content(Song), "old");
    }
}

TEST(SongWriter, RaisesTheErrorThatPreventsTheReplacement) {
    SongProgram p;
    p.Disk.Put(Song, "old");
    p.Disk.FailCommitting(Song, std::errc::io_error);
    p.Picker.AnswerNext(Song);
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    EXPECT_THROW(p.App.Storage.SongWriter.SaveMusic(), RuntimeError);
    EXPECT_EQ(p.Disk.Content(Song), "old");
}

TEST(SongWriter, EndsItsLogBlockWhenWritingFails) {
    SongProgram p;
    p.App.Log.Enable();
    for (int i = 0; i < 1000; ++i)
        p.App.List.Append("Quarter", "C4", "", "");
    p.Disk.SetSpaceLeft(2000);
    p.Picker.AnswerNext(Song);
    EXPECT_THROW(p.App.Storage.SongWriter.SaveMusic(), RuntimeError);
    EXPECT_NE(p.LogText().find("SaveMusic() - END"), std::string::npos);
    EXPECT_EQ(p.App.Log.LogIndent(), 0);
}

TEST(SongWriter, WritesLargePiecesAndStopsAtTheFirstError) {
    class CountingFile : public FileWriter {
      public:
        std::error_code Write(std::string_view bytes) override {
            ++Writes;
            Smallest = std::min(Smallest, bytes.size());
            return Writes == 3 ? std::make_error_code(std::errc::no_space_on_device) : std::error_code();
        }
        std::error_code Commit() override { return {}; }
        int Writes = 0;
        std::size_t Smallest = SIZE_MAX;
    };
    SongProgram p;
    for (int i = 0; i < 100'000; ++i)
        p.App.List.Append("Quarter", "C4", "", "");
    CountingFile file;
    EXPECT_EQ(WriteSong(p.App.Fields.Song, p.App.Fields.Entry, p.App.List, file),
              std::errc::no_space_on_device);
    EXPECT_EQ(file.Writes, 3);
    EXPECT_GE(file.Smallest, 64U * 1024);
}

TEST(SongWriter, SavesWithoutChangingAnything) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -", "Half E4 G4 Dot"});
    p.App.List.Select(2);
    p.Saved();
    EXPECT_EQ(p.Rows(), "Quarter|C4||\nHalf|E4|G4|Dot\n");
    EXPECT_EQ(p.App.List.SelectedItem(), 2);
    EXPECT_TRUE(p.App.List.IsSelected(2));
}

}  // namespace
}  // namespace quavix
