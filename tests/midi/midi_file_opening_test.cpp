// SPDX-License-Identifier: MIT
// From the file dialog to the file that can be played, or to the message why not.
#include "midi/midi_file_opening.h"

#include <gmock/gmock.h>

#include "midi/midi_file_program.h"

namespace quavix::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string AsText(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

/// The bytes up to `size`.
std::string Cut(const std::string& file, std::size_t size) {
    return file.substr(0, size);
}

TEST(MidiFileOpening, AsksForAMidiFile) {
    MidiFileProgram p;
    p.App.Log.Enable();
    p.Open(TwoNotes);
    ASSERT_EQ(p.Picker.Shown().size(), 1U);
    EXPECT_EQ(p.Picker.Shown()[0].Title, "Please choose MIDI file to play");
    EXPECT_EQ(p.Picker.Shown()[0].Filter, "MIDI files (*.mid)|*.mid");
    EXPECT_EQ(p.LogText(), "MIDI File Playback - Browse clicked\n");
    EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
    EXPECT_EQ(p.Position(), "0.00% 00:00.00");
    EXPECT_EQ(p.Form.sldPosition, 0);
}

TEST(MidiFileOpening, WithoutAChoiceNothingChanges) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.Form.sldPosition_Change(400);
    p.Picker.AnswerNext("");
    p.Form.cmdBrowse_Click();
    EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
    EXPECT_EQ(p.Position(), "40.00% 00:00.03");
    EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
}

TEST(MidiFileOpening, ShowsWhatItIsDoing) {
    MidiFileProgram p;
    std::vector<std::string> texts;
    p.Form.lblInfoText.Watch([&](const std::string& text) {
        EXPECT_FALSE(p.Form.cmdBrowseEnabled);
        texts.push_back(text);
    });
    p.Open(TwoNotes);
    EXPECT_THAT(texts, ElementsAre("Initialising... ", "Decoding tempo changes... Track 01",
                                   "Decoding absolute timings... Track 01", "Decoding events... 100%"));
    EXPECT_FALSE(p.Form.frmInfoTextVisible);
    EXPECT_TRUE(p.Form.cmdBrowseEnabled);
}

TEST(MidiFileOpening, AnotherFileStopsPlaybackAtItsBeginning) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {1000, NoteOffOf(60)}}));
    p.PlayAt(0);
    p.Time.RunUntil(50);
    p.Open(TwoNotes, "/music/other.mid");
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_FALSE(p.Form.GetMIDINoteIsOn(60)) << "its end is in the other file";
    EXPECT_EQ(p.Form.txtFile.Get(), "/music/other.mid");
    EXPECT_EQ(p.Position(), "0.00% 00:00.00");
}

struct BadFile {
    const char* Fault;
    std::string Content;
    const char* Detail;
};

// A message with what is wrong and where; what was open stays, and goes on playing.
TEST(MidiFileOpening, AFileThatCannotBePlayedIsReportedAndTheOldOneStays) {
    const std::string whole = TwoNotes;
    const std::string fault = "a data byte where a status byte was expected";
    const BadFile files[] = {
        {"empty", "", "Byte 0: the file is empty."},
        {"another kind of file", "%PDF-1.7",
         "Byte 0: not a MIDI file, which begins with 4D 54 68 64 (\"MThd\"), not 25 50 44 46."},
        {"cut off in its header", Cut(whole, 13), "Byte 13: the file ends within its header."},
        {"without a track", Cut(whole, 14), "Byte 14: the file has no track."},
        {"division 0", AsText(test::Header(0, 1, 0)),
         "Byte 12: the division is 0 ticks in a quarter note, so no event has a time."},
        {"nothing but damage", AsText(test::Header(0, 1, 96) + test::TrackSaying(3, {0, 60, 96})), nullptr},
    };
    for (const BadFile& file : files) {
        SCOPED_TRACE(file.Fault);
        MidiFileProgram p;
        p.Open(MidiSong({{0, NoteOnOf(60)}, {1000, NoteOffOf(60)}}));
        p.PlayAt(0);
        p.Time.RunUntil(50);
        p.Open(file.Content, "/music/bad.mid");
        ASSERT_EQ(p.Boxes.Shown().size(), 1U);
        const MessageBox& box = p.Boxes.Shown()[0];
        const std::string beginning =
            "Either couldn't open or couldn't recognize file format of this MIDI file...\r\n\r\n";
        EXPECT_EQ(box.Title, "Failed to open MIDI file!");
        EXPECT_EQ(box.Icon, BoxIcon::Warning);
        if (file.Detail != nullptr)
            EXPECT_EQ(box.Text, beginning + file.Detail);
        else
            EXPECT_THAT(box.Text,
                        testing::AllOf(testing::StartsWith(beginning + "Byte 2"), HasSubstr(fault)));
        EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
        EXPECT_FALSE(p.Form.frmInfoTextVisible);
        EXPECT_TRUE(p.Form.IsPlaying());
        EXPECT_NE(p.TonesUntil(100), "");
    }
}

TEST(MidiFileOpening, AFileThatCannotBeReadIsReported) {
    MidiFileProgram p;
    p.Picker.AnswerNext("/music/none.mid");
    p.Form.cmdBrowse_Click();
    EXPECT_THAT(p.Boxes.Shown().back().Text,
                HasSubstr("\r\n\r\nThe file can't be read: No such file or directory."));
    p.Disk.FailReading("/music/song.mid", std::errc::permission_denied);
    p.Open(TwoNotes);
    EXPECT_THAT(p.Boxes.Shown().back().Text, HasSubstr("\r\n\r\nThe file can't be read: Permission denied."));
    EXPECT_EQ(p.Form.txtFile.Get(), "");
    EXPECT_FALSE(p.Form.frmPlaybackEnabled);
}

TEST(MidiFileOpening, AFileThatFailsWhileItIsReadIsReported) {
    MidiFileProgram p;
    p.Disk.SetReadSize(10);
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t at) {
        if (at == 20)
            p.Disk.FailReadingOnce(name, std::errc::io_error);
    });
    p.Open(TwoNotes);
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_THAT(p.Boxes.Shown()[0].Text, HasSubstr("The file can't be read: Input/output error."));
}

TEST(MidiFileOpening, AFileThatIsReadInPiecesIsTheSame) {
    MidiFileProgram p;
    p.Disk.SetReadSize(3);
    p.Open(TwoNotes);
    p.PlayAt(0);
    EXPECT_THAT(p.TonesUntil(100), testing::StartsWith("0.0020 speaker 523 Hz 15 ms\n"));
}

TEST(MidiFileOpening, ARepairedFileIsPlayedAndTheLogListsTheRepairs) {
    MidiFileProgram p;
    p.App.Log.Enable();
    p.Open(Cut(TwoNotes, TwoNotes.size() - 2));
    EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
    EXPECT_THAT(p.LogText(), HasSubstr("Byte 18: track 1 should have 20 bytes, but the file ends.\n"));
    p.PlayAt(0);
    EXPECT_NE(p.TonesUntil(100), "");
}

TEST(MidiFileOpening, TooManyEventsAreTheErrorOfArrayBounds) {
    Bytes events = {0, 0x90, 60, 1};
    for (int i = 0; i < 99'999; ++i)
        events.insert(events.end(), {0, 60, 1});
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.Form.sldPosition_Change(400);
    p.Open(AsText(test::File(0, {test::Track(events)})), "/music/long.mid");
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_THAT(p.Boxes.Shown()[0].Text, HasSubstr("Byte 300023: track 1 has more than 99999 events."));
    EXPECT_THAT(p.Boxes.Shown()[0].Text, HasSubstr("9"));
    EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
    EXPECT_EQ(p.Position(), "40.00% 00:00.03");
    EXPECT_TRUE(p.Form.cmdBrowseEnabled);
}

TEST(MidiFileOpening, AFileWithoutAnyEventIsOpenButCannotBePlayed) {
    MidiFileProgram p;
    p.Open(AsText(test::Header(0, 1, 96) + test::TrackSaying(0, {})));
    EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
    EXPECT_EQ(p.Position(), "100.00% 00:00.00");
    EXPECT_FALSE(p.Form.frmPlaybackEnabled);
}

// However it is stopped, the file that was open stays.
TEST(MidiFileOpening, CanBeInterrupted) {
    const std::function<void(MidiFileProgram&)> ways[] = {
        [](MidiFileProgram& p) { p.Form.cmdStop_Click(); },
        [](MidiFileProgram& p) { p.App.Fields.Mods.UseMIDIFile.Ticked = false; },
        [](MidiFileProgram& p) { p.App.Fields.State.ShuttingDown = true; },
    };
    for (const auto& stop : ways) {
        MidiFileProgram p;
        p.Open(TwoNotes);
        p.MidiFiles.Real = nullptr;
        p.MidiFiles.Steps = 1000;
        p.MidiFiles.Content.TicksPerQuarter = 96;
        p.MidiFiles.Content.Tracks.resize(3);
        std::string texts;
        p.Form.lblInfoText.Watch([&](const std::string& text) { texts += text + "\n"; });
        p.Time.At(0, [&] { stop(p); });
        p.Open("anything", "/music/other.mid");
        EXPECT_EQ(texts, "");
        EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
        EXPECT_FALSE(p.Form.frmInfoTextVisible);
        EXPECT_TRUE(p.Form.cmdBrowseEnabled);
        EXPECT_TRUE(p.Form.frmPlaybackEnabled);
        EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
    }
}

TEST(MidiFileOpening, AnotherBrowsingMeanwhileIsIgnored) {
    MidiFileProgram p;
    p.Time.At(0, [&] { p.Form.cmdBrowse_Click(); });
    p.Open(TwoNotes);
    EXPECT_EQ(p.Picker.Shown().size(), 1U);
    EXPECT_EQ(p.Form.txtFile.Get(), "/music/song.mid");
}

TEST(MidiFileOpening, AReaderThatHasGoneIsReported) {
    MidiFileProgram p;
    p.MidiFiles.Real = nullptr;
    p.MidiFiles.LoadProblem = "It is gone.";
    p.Open(TwoNotes);
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_THAT(p.Boxes.Shown()[0].Text, testing::EndsWith("\r\n\r\nIt is gone."));
}

TEST(MidiFileOpening, MidiFilesAreKnownByTheirNames) {
    for (const char* name : {"a.mid", "/x/b.MID", "c.midi", "song.QVX.Mid"})
        EXPECT_TRUE(IsMidiFileName(name)) << name;
    for (const char* name : {"", ".mid", "mid", "a.mid.QVX", "amid", "a.mi"})
        EXPECT_FALSE(IsMidiFileName(name)) << name;
}

}  // namespace
}  // namespace quavix::test
