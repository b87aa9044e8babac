// SPDX-License-Identifier: MIT
#include "songfile/utf8_file.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"

namespace quavix {
namespace {

using test::Header;
using test::Song;
using test::SongProgram;
using namespace std::string_literals;

constexpr std::size_t MiB = 1024 * 1024;
const std::string MusicStart = Header + "MUSICLISTSTART\n";

std::string Repaired(std::string_view bytes, std::size_t pieceSize) {
    std::string text;
    Utf8Repair repair(text);
    for (; !bytes.empty(); bytes.remove_prefix(std::min(pieceSize, bytes.size())))
        repair.Add(bytes.substr(0, pieceSize));
    repair.Finish();
    return text;
}

TEST(Utf8, AcceptsShortestFormsOnly) {
    for (const char* good : {"", "abcdefghijk", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "abcdefgh\xC3\xA9xyz"})
        EXPECT_TRUE(IsUtf8(good)) << good;
    EXPECT_TRUE(IsUtf8("a\0b"s));
    for (const char* bad : {"\x80", "\xC0\x80", "\xC1\xBF", "\xC2", "\xC2\x41", "\xE0\x9F\xBF",
                            "\xED\xA0\x80", "\xE2\x82", "\xE2\x82\x41", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "abcdefghi\xE9"})
        EXPECT_FALSE(IsUtf8(bad)) << testing::PrintToString(bad);
}

TEST(Utf8Repair, KeepsWellFormedSequencesAndTakesOtherBytesAsLatin1) {
    const std::string bytes = "a\xE9\xC3\xA9\xF0\x9F\x8E\xB5\xFF\x80\xE2\x82\xAC\xE2\x82z\xC3";
    const std::string expected =
        "a\xC3\xA9\xC3\xA9\xF0\x9F\x8E\xB5\xC3\xBF\xC2\x80\xE2\x82\xAC\xC3\xA2\xC2\x82z\xC3\x83";
    for (std::size_t pieceSize = 1; pieceSize <= bytes.size(); ++pieceSize)
        EXPECT_EQ(Repaired(bytes, pieceSize), expected) << pieceSize;
    EXPECT_TRUE(IsUtf8(expected));
}

TEST(Utf8File, LoadsInvalidUtf8AsLatin1WithAMessage) {
    SongProgram p;
    p.App.Log.Enable();
    p.LoadFile(MusicStart + "Half C4 - caf\xE9 \xC3\xA9\n");
    EXPECT_EQ(p.Rows(), "Half|C4||caf\xC3\xA9 \xC3\xA9\n");
    EXPECT_EQ(p.LogText(),
              "    ActuallyLoadMusic(\"/songs/song.QVX\") - START\n"
              "    Problem loading - loading byte-by-byte\n"
              "    Removing new-line chars from value of each index in SplitFile()\n"
              "    Loading music list\n"
              "    EndOfLoadMusic\n"
              "    ActuallyLoadMusic() - END\n\n");
    EXPECT_EQ(p.Loading.InfoText,
              "Loading byte-by-byte...\r\n(May be slow)\r\nThis happens due to errors caused by your default "
              "non-Unicode language setup, since this file contains Unicode characters.");
    EXPECT_FALSE(p.Loading.InfoShown);
}

TEST(Utf8File, LoadsUtf8WithoutAMessage) {
    SongProgram p;
    p.LoadFile(MusicStart + "Half C4 - \xF0\x9F\x8E\xB5\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\xF0\x9F\x8E\xB5\n");
    EXPECT_EQ(p.Loading.InfoText, "Loading...");
}

TEST(Utf8File, TakesNulBytesAsOrdinaryCharacters) {
    SongProgram p;
    p.LoadFile(MusicStart + "Half C4 - a\0b\nH\0 - -\n"s);
    EXPECT_EQ(p.Rows(), "Half|C4||a\0b\nH\0|||\n"s);
}

TEST(Utf8File, GivesTheSameTextForEveryReadSize) {
    const std::string content = MusicStart + "H\xE9 C4 \xC3\xA9 \xFF\xC3\n\xF0\x9F\x8E\xB5 a b \xE2\x82";
    SongProgram whole;
    whole.LoadFile(content);
    for (std::size_t size = 1; size < 12; ++size) {
        SongProgram p;
        p.Disk.SetReadSize(size);
        p.LoadFile(content);
        EXPECT_EQ(p.Rows(), whole.Rows()) << size;
    }
}

TEST(Utf8File, ReadsAGrowingFileToItsFirstLength) {
    SongProgram p;
    p.Disk.SetReadSize(16);
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t position) {
        if (position > 0)
            p.Disk.Put(name, p.Disk.Content(name) + "Half G4 - -\n");
    });
    p.LoadFile(MusicStart + "Half C4 - -\nHalf D4 - -\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\nHalf|D4||\n");
}

TEST(Utf8File, KeepsTheTextReadOfAShrinkingOrDeletedFile) {
    SongProgram p;
    p.Disk.SetReadSize(Header.size() + 8);
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t position) {
        if (position > 0)
            p.Disk.Delete(name);
    });
    p.LoadFile(Header + "BPM 99\r\n" + "MUSICLISTSTART\r\nHalf C4 - -\r\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(Utf8File, ReadsAFileOnceMoreWhenReadingFails) {
    SongProgram p;
    p.App.Log.Enable();
    p.Disk.SetReadSize(16);
    bool failed = false;
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t position) {
        if (position > 0 && !failed) {
            failed = true;
            p.Disk.FailReadingOnce(name, std::errc::io_error);
        }
    });
    p.LoadFile(MusicStart + "Half C4 - -\n");
    EXPECT_EQ(p.Rows(), "Half|C4||\n");
    EXPECT_NE(p.LogText().find("Problem loading - loading byte-by-byte"), std::string::npos);
}

TEST(Utf8File, RaisesTheErrorWhenReadingFailsForGoodAndChangesNothing) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.App.Fields.Song.BeatsPerBar.Set(3);
    p.Disk.SetReadSize(16);
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t position) {
        if (position > 0)
            p.Disk.FailReading(name, std::errc::io_error);
    });
    try {
        p.LoadFile(MusicStart + "Half C4 - -\n");
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::DeviceIoError);
    }
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 3);
    EXPECT_FALSE(p.Loading.InfoShown);
}

TEST(Utf8File, RaisesTheErrorWhenTheFileIsGoneBeforeItIsOpenedOnceMore) {
    SongProgram p;
    p.Disk.BeforeRead([&](const std::string& name, std::uint64_t) {
        p.Disk.Put(name, "\xFF");
        p.Disk.FailReadingOnce(name, std::errc::io_error);
        p.Disk.Delete(name);
    });
    try {
        p.LoadFile(MusicStart);
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::FileNotFound);
    }
    EXPECT_FALSE(p.Loading.InfoShown);
}

TEST(Utf8File, ChangesNothingWhenReadingIsStopped) {
    SongProgram p;
    p.App.Log.Enable();
    p.SetSong({"Quarter C4 - -"});
    p.App.Fields.Song.BeatsPerBar.Set(3);
    p.Loading.OnProgress = [](double) { return false; };
    p.LoadFile(MusicStart + std::string(3 * MiB, '\n'));
    EXPECT_EQ(p.Loading.Ratios.size(), 1U);
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 3);
    EXPECT_FALSE(p.Loading.InfoShown);
    EXPECT_TRUE(p.LogText().ends_with("    ActuallyLoadMusic() - END\n\n"));
}

TEST(Utf8File, ChangesNothingWhenReadingByteByByteIsStopped) {
    SongProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.Loading.OnProgress = [&](double) { return !p.Loading.InfoText.starts_with("Loading byte"); };
    p.LoadFile(MusicStart + std::string(3 * MiB, '\xE9'));
    EXPECT_EQ(p.Rows(), "Quarter|C4||\n");
    EXPECT_FALSE(p.Loading.InfoShown);
}

TEST(Utf8File, TellsItsProgressOncePerPiece) {
    SongProgram p;
    p.Disk.SetReadSize(MiB / 4);
    p.LoadFile(MusicStart + "//" + std::string(4 * MiB, 'x'));
    EXPECT_EQ(p.Loading.Ratios.size(), 4U);
    EXPECT_LE(p.Loading.Ratios.back(), Utf8File::ProgressShare);
}

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t LongLine = 20 * MiB;
#else
constexpr std::size_t LongLine = 100 * MiB;
#endif

TEST(Utf8File, LoadsAVeryLongLine) {
    SongProgram p;
    std::string content = MusicStart + "Half C4 - ";
    content.append(LongLine, 'x');
    p.Disk.Put(Song, std::move(content));
    p.App.Storage.SongReader.ActuallyLoadMusic(Song);
    ASSERT_EQ(p.App.List.Count(), 1);
    EXPECT_EQ(p.App.List.Text(1, Cell::Mod).size(), LongLine);
}

TEST(Utf8File, LoadsAVeryLongSettingsLine) {
    SongProgram p;
    std::string content = Header;
    content.append(LongLine, 'x');
    p.Disk.Put(Song, std::move(content));
    p.App.Storage.SongReader.ActuallyLoadMusic(Song);
    EXPECT_EQ(p.App.List.Count(), 0);
}

}  // namespace
}  // namespace quavix
