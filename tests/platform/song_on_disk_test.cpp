// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/linux/posix_files.h"
#include "shell/runtime_error.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/simulated_dialogs.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"
#include "support/ordinary_user.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

namespace fs = std::filesystem;

/// Songs in files of the real file system.
class SongOnDisk : public testing::Test {
  protected:
    SongOnDisk() { fs::permissions(Folder.Path(), fs::perms::all); }

    void Save(const std::string& name) {
        Picker.AnswerNext(Folder.File(name));
        Writer.SaveMusic();
    }

    std::int32_t ErrorOfLoading(const std::string& name) {
        try {
            Reader.ActuallyLoadMusic(Folder.File(name));
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    }

    test::TemporaryFolder Folder;
    MainFields Fields;
    MusicList List;
    quavix::Timeline Timeline;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Timeline};
    SimulatedFilePicker Picker{Time, Timeline};
    RecordedLoadingView Loading{Time, Timeline};
    PosixFiles Disk;
    DebugLog Log{Disk, Time, Folder.File("debuglog.txt")};
    SongReader Reader{Fields, List, Disk, Boxes, Picker, Loading, Log};
    SongWriter Writer{Fields, List, Disk, Boxes, Picker, Log};
};

TEST_F(SongOnDisk, ComesBackAsItWas) {
    List.Append("Quarter", "C4", "", "Dot");
    Save("song.QVX");
    const std::string saved = Folder.Content("song.QVX");
    List.Clear();
    EXPECT_EQ(ErrorOfLoading("song.QVX"), 0);
    ASSERT_EQ(List.Count(), 1);
    EXPECT_EQ(List.Line(1), (MusicLine{"Quarter", "C4", "", "Dot"}));
    Boxes.AnswerNext(BoxAnswer::Yes);
    Save("song.QVX");
    EXPECT_EQ(Folder.Content("song.QVX"), saved);
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(SongOnDisk, IsNotSavedUnderAFoldersName) {
    fs::create_directory(Folder.File("folder"));
    Save("folder");
    ASSERT_EQ(Boxes.Shown().size(), 1U);
    EXPECT_EQ(Boxes.Shown()[0].Title, "Can't save as this file!");
    EXPECT_TRUE(fs::is_directory(Folder.File("folder")));
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(SongOnDisk, IsNotSavedOverAReadOnlyFile) {
    Folder.Put("song.QVX", "old");
    fs::permissions(Folder.File("song.QVX"), fs::perms{0444});
    Boxes.AnswerNext(BoxAnswer::Yes);
    const test::OrdinaryUser user;
    Save("song.QVX");
    ASSERT_EQ(Boxes.Shown().size(), 2U);
    EXPECT_EQ(Boxes.Shown()[1].Title, "Can't save as this file!");
    EXPECT_EQ(Folder.Content("song.QVX"), "old");
}

TEST_F(SongOnDisk, SaysWhyItCannotBeLoaded) {
    EXPECT_EQ(ErrorOfLoading("missing.QVX"), RuntimeError::FileNotFound);
    fs::create_directory(Folder.File("folder"));
    EXPECT_EQ(ErrorOfLoading("folder"), RuntimeError::PathFileAccessError);
    ASSERT_EQ(::mkfifo(Folder.File("pipe").c_str(), 0666), 0);
    EXPECT_EQ(ErrorOfLoading("pipe"), RuntimeError::DeviceIoError);
    Folder.Put("secret.QVX", "x");
    fs::permissions(Folder.File("secret.QVX"), fs::perms::none);
    const test::OrdinaryUser user;
    EXPECT_EQ(ErrorOfLoading("secret.QVX"), RuntimeError::PermissionDenied);
    EXPECT_EQ(Timeline.Text("loading"), "");
}

}  // namespace
}  // namespace quavix
