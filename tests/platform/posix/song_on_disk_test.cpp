// SPDX-License-Identifier: MIT
// Songs in files of the real file system, by the choice between saving and loading.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/save_load.h"
#include "support/file_size_limit.h"
#include "support/ordinary_user.h"
#include "support/songs_on_disk.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

namespace fs = std::filesystem;

class MainWindowEnabled : public SaveLoadView {
  public:
    void ShowSaveLoadForm(bool) override {}
    void EnableMainForm(bool enable) override { Enabled = enable; }
    void BringMainFormToFront() override {}

    bool Enabled = true;
};

/// A song of a file, with a change that isn't saved.
class SongOnDisk : public testing::Test, protected test::SongsOnDisk {
  protected:
    SongOnDisk() {
        fs::permissions(Folder.Path(), fs::perms::all);
        Picker.AnswerNext(Folder.File("song.QVX"));
        List.Append("Quarter", "C4", "", "");
        Document.SaveAs();
        Saved = Folder.Content("song.QVX");
        List.Append("Half", "D4", "", "");
    }

    /// Chooses to save under this name, replacing what is there.
    void ChooseSave(const std::string& name) {
        Window.SaveLoadButton_Click();
        Picker.AnswerNext(Folder.File(name));
        Boxes.AnswerNext(BoxAnswer::Yes);
        Window.SaveButton_Click();
    }

    std::int32_t ErrorOfLoading(const std::string& name) {
        try {
            Document.LoadFile(Folder.File(name));
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    }

    void ExpectTold(const std::string& name) {
        ASSERT_FALSE(Boxes.Shown().empty());
        EXPECT_EQ(Boxes.Shown().back().Title, "Can't save as this file!");
        EXPECT_NE(Boxes.Shown().back().Text.find(Folder.File(name)), std::string::npos);
    }
    /// The window has the song as it was, the file what was saved last, and the folder so many entries.
    void ExpectUnharmed(std::ptrdiff_t entries) {
        EXPECT_TRUE(View.Enabled);
        EXPECT_TRUE(Document.Modified());
        EXPECT_EQ(Document.FileName().Get(), Folder.File("song.QVX"));
        EXPECT_EQ(List.Count(), 2);
        EXPECT_EQ(Folder.Content("song.QVX"), Saved);
        EXPECT_EQ(Folder.EntryCount(), entries);
    }

    test::TemporaryFolder Folder;
    SongWriter Writer{Fields.Song, Fields.Entry, List, *Disk, Boxes, Picker, Log};
    EditHistory History{Fields.Song, List};
    SongDocument Document{{Fields.Song, Fields.State, List, Reader, Writer, *Disk, Boxes, History, [] {}}};
    MainWindowEnabled View;
    SaveLoad Window{View, Document};
    std::string Saved;
};

TEST_F(SongOnDisk, ComesBackAsItWas) {
    EXPECT_TRUE(Document.LoadFile(Folder.File("song.QVX")));
    ASSERT_EQ(List.Count(), 1);
    EXPECT_EQ(List.Line(1), (MusicLine{"Quarter", "C4", "", ""}));
    ChooseSave("song.QVX");
    EXPECT_EQ(Folder.Content("song.QVX"), Saved);
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(SongOnDisk, IsNotSavedUnderAFoldersName) {
    fs::create_directory(Folder.File("folder"));
    Window.SaveLoadButton_Click();
    Picker.AnswerNext(Folder.File("folder"));
    Window.SaveButton_Click();
    ExpectTold("folder");
    ExpectUnharmed(2);
    EXPECT_TRUE(fs::is_empty(Folder.File("folder")));
}

TEST_F(SongOnDisk, IsNotSavedToADeviceOrAPipe) {
    fs::create_symlink("/dev/full", Folder.File("device"));
    ChooseSave("device");
    ExpectTold("device");
    ExpectUnharmed(2);
    ASSERT_EQ(::mkfifo(Folder.File("pipe").c_str(), 0666), 0);
    ChooseSave("pipe");
    ExpectTold("pipe");
    ExpectUnharmed(3);
}

TEST_F(SongOnDisk, LeavesAReadOnlyFileAlone) {
    Folder.Put("other", "other");
    fs::permissions(Folder.File("other"), fs::perms{0444});
    {
        const test::OrdinaryUser user;
        ChooseSave("other");
    }
    ExpectTold("other");
    ExpectUnharmed(2);
    EXPECT_EQ(Folder.Content("other"), "other");
}

TEST_F(SongOnDisk, LeavesAReadOnlyFolderAlone) {
    fs::permissions(Folder.Path(), fs::perms{0555});
    fs::permissions(Folder.File("song.QVX"), fs::perms{0666});
    {
        const test::OrdinaryUser user;
        EXPECT_FALSE(Document.Save());
        ExpectTold("song.QVX");
        Window.SaveLoadButton_Click();
        Picker.AnswerNext(Folder.File("new"));
        Window.SaveButton_Click();
        ExpectTold("new");
    }
    fs::permissions(Folder.Path(), fs::perms::all);
    ExpectUnharmed(1);
}

TEST_F(SongOnDisk, IsSavedOnceTheDiskIsNotFullAnyMore) {
    std::int32_t number = 0;
    try {
        const test::FileSizeLimit limit(300);
        ChooseSave("song.QVX");
    } catch (const RuntimeError& error) {
        number = error.Number();
    }
    EXPECT_EQ(number, RuntimeError::DiskFull);
    ExpectUnharmed(1);
    EXPECT_TRUE(Document.Save());
    EXPECT_FALSE(Document.Modified());
    EXPECT_NE(Folder.Content("song.QVX").find("Half D4 - -"), std::string::npos);
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
    ExpectUnharmed(4);
}

}  // namespace
}  // namespace quavix
