// SPDX-License-Identifier: MIT
// Saving from the window: songs that can't be saved, and two windows that save the same song.
#include <filesystem>
#include <functional>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "quavix_window.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

constexpr const char* Header = "Quavix by Dastrel-204 file format\r\n";

QByteArray Song(const QByteArray& lines) {
    return QByteArray(Header) + "MUSICLISTSTART\r\n" + lines;
}

QByteArray Content(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Put(const QString& name, const QByteArray& content) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

/// A desktop and the file of a song of one line.
struct SavedSong {
    SavedSong() { Put(File, Song("Quarter C4 - -\r\n")); }

    const DesktopSession Session;
    const QTemporaryDir Folder;
    const QString File = Folder.filePath("song.QVX");
};

/// A program with a song in its window. `prepare` is called before its start.
struct OpenSong {
    OpenSong(const DesktopSession& session, const QString& file,
             const std::function<void(QuavixProcess&)>& prepare = {})
        : Process(session.Environment()), Window(session, Process) {
        if (prepare)
            prepare(Process);
        Process.Start({file});
    }

    void WaitForTitle(const QString& end) {
        EXPECT_TRUE(Window.WaitUntil([&] { return Window.Title().endsWith(end); }))
            << Window.Title().toStdString();
    }

    QuavixProcess Process;
    QuavixWindow Window;
};

void Change(OpenSong& open) {
    open.Window.PressKey("D 4");
    open.WaitForTitle(" - song.QVX *");
}

/// Fails to save the changed song with what a box says, and has it unharmed in the window.
void ExpectThatSavingFails(OpenSong& open, const QString& title, const QString& text) {
    open.Window.Choose("Save");
    const QString said = open.Window.Answer(title, "OK");
    EXPECT_TRUE(said.contains(text)) << said.toStdString();
    open.WaitForTitle(" - song.QVX *");
    EXPECT_EQ(open.Window.Row(1), "Quarter, C4");
    EXPECT_EQ(open.Window.Row(2), "1/8, D4");
}

void SavesAfterAll(OpenSong& open, const QString& file) {
    open.Window.Choose("Save");
    open.WaitForTitle(" - song.QVX");
    EXPECT_TRUE(Content(file).endsWith("Quarter C4 - -\r\n1/8 D4 - -\r\n"));
}

TEST(SavingFromTheWindow, ReportsAFullDiskAndSavesOnceItHasSpace) {
    const DesktopSession session;
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.File("song.QVX"));
    const QByteArray old = Song("Quarter C4 - -\r\n");
    Put(file, old);
    OpenSong open(session, file);
    Change(open);
    open.Process.FillDisk();
    ExpectThatSavingFails(open, "Quavix", "Disk full");
    EXPECT_EQ(Content(file), old);
    EXPECT_EQ(folder.EntryCount(), 1);
    open.Process.FreeDisk();
    SavesAfterAll(open, file);
}

TEST(SavingFromTheWindow, SaysThatAFolderCantBeWrittenTo) {
    namespace fs = std::filesystem;
    const DesktopSession session;
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.File("song.QVX"));
    const QByteArray old = Song("Quarter C4 - -\r\n");
    Put(file, old);
    OpenSong open(session, file, [](QuavixProcess& process) { process.HeedPermissions(); });
    Change(open);
    const fs::perms before = fs::status(folder.Path()).permissions();
    fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
    ExpectThatSavingFails(open, "Can't save as this file!", "...can't be written to.");
    EXPECT_EQ(Content(file), old);
    fs::permissions(folder.Path(), before);
    SavesAfterAll(open, file);
}

TEST(SavingFromTheWindow, ReportsAFolderAtTheFilesPath) {
    const SavedSong song;
    OpenSong open(song.Session, song.File);
    open.WaitForTitle(" - song.QVX");
    Change(open);
    QFile::remove(song.File);
    QDir().mkdir(song.File);
    ExpectThatSavingFails(open, "Can't save as this file!", "...can't be written to.");
    EXPECT_TRUE(QDir(song.File).isEmpty());
    QDir().rmdir(song.File);
    SavesAfterAll(open, song.File);
}

TEST(SavingFromTheWindow, WritesToNoDevice) {
    const DesktopSession session;
    const QTemporaryDir folder;
    const QString file = folder.filePath("song.QVX");
    const QByteArray old = Song("Quarter C4 - -\r\n");
    Put(file, old);
    const QString device = folder.filePath("device.QVX");
    ASSERT_TRUE(QFile::link("/dev/full", device));
    OpenSong open(session, file);
    open.Window.PressKey("D 4");
    open.Window.Choose("Save as...");
    open.Window.GiveFileName("Saving music and config", device, "Save");
    open.Window.Answer("File already exists", "Yes");
    const QString said = open.Window.Answer("Can't save as this file!", "OK");
    EXPECT_TRUE(said.contains(device)) << said.toStdString();
    open.WaitForTitle(" - song.QVX *");
    EXPECT_EQ(Content(file), old);
    SavesAfterAll(open, file);
}

TEST(SavingFromTheWindow, TheLastOfTwoWindowsThatSaveASongWins) {
    const SavedSong song;
    OpenSong one(song.Session, song.File);
    OpenSong other(song.Session, song.File);
    one.Window.PressKey("D 4");
    other.Window.PressKey("E 4");
    SavesAfterAll(one, song.File);
    other.WaitForTitle(" - song.QVX *");
    other.Window.Choose("Save");
    other.WaitForTitle(" - song.QVX");
    const QByteArray saved = Content(song.File);
    EXPECT_TRUE(saved.startsWith(Header));
    EXPECT_TRUE(saved.endsWith("\r\nQuarter C4 - -\r\n1/8 E4 - -\r\n")) << saved.toStdString();
    EXPECT_EQ(one.Window.Row(2), "1/8, D4");  // and can be saved anew
    SavesAfterAll(one, song.File);
    EXPECT_EQ(QDir(song.Folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("song.QVX"));
}

}  // namespace
}  // namespace quavix::test
