// SPDX-License-Identifier: MIT
#include <csignal>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "quavix_process.h"
#include "shell/program_info.h"

namespace quavix {
namespace {

class QuavixProgram : public testing::Test {
  protected:
    QuavixProgram() {
        program_.Environment.insert("QT_QPA_PLATFORM", "offscreen");
        program_.Environment.insert("XDG_RUNTIME_DIR", program_.File(""));
    }

    void WaitUntilItCatches(int signal) {
        ASSERT_TRUE(program_.WaitUntil([&] { return Catches(signal); }));
    }
    /// The kernel says which signals a process has handlers for.
    bool Catches(int signal) {
        QFile status(QString("/proc/%1/status").arg(program_.Id()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("SigCgt:"))
                return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
        }
        return false;
    }

    test::QuavixProcess program_;
};

TEST_F(QuavixProgram, AnswersVersionAndHelpWithoutADisplay) {
    program_.Environment.remove("QT_QPA_PLATFORM");
    program_.Environment.remove("DISPLAY");
    program_.Start({"--version"});
    EXPECT_EQ(program_.ExitCode(), 0);
    EXPECT_EQ(program_.Process().readAllStandardOutput(),
              QByteArray("quavix ") + program::VersionText + "\n");
    program_.Start({"--help"});
    EXPECT_EQ(program_.ExitCode(), 0);
    EXPECT_TRUE(program_.Process().readAllStandardOutput().startsWith("Usage: quavix"));
}

TEST_F(QuavixProgram, ReportsAMissingDisplay) {
    program_.Environment.insert("QT_QPA_PLATFORM", "xcb");
    program_.Environment.remove("WAYLAND_DISPLAY");
    program_.Environment.insert("DISPLAY", ":654321");
    program_.Start({});
    EXPECT_EQ(program_.ExitCode(), 1);
    EXPECT_TRUE(program_.Process().readAllStandardError().contains("there is no display"));
}

TEST_F(QuavixProgram, ATerminationSignalClosesItInOrder) {
    program_.Put("logenable", {});  // the box about it then stands open, in a loop of its own
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        QFile::remove(program_.File("debuglog.txt"));
        program_.Start({});
        WaitUntilItCatches(signal);
        kill(static_cast<pid_t>(program_.Id()), signal);
        EXPECT_EQ(program_.ExitCode(), 0);
        const QStringList log =
            QString::fromUtf8(program_.Content("debuglog.txt")).split("\r\n", Qt::SkipEmptyParts);
        ASSERT_EQ(log.size(), 6);
        EXPECT_TRUE(log[0].endsWith(" - [REQUEST TO CLOSE PROGRAM]"));
        EXPECT_TRUE(log[1].endsWith(" -     VoiceMainForm.VoiceDoShutDownStuff() - START"));
        EXPECT_TRUE(log[2].endsWith(" -     VoiceMainForm.VoiceDoShutDownStuff() - END"));
        EXPECT_TRUE(log[3].endsWith(" -     DoShutDownStuff() - START"));
        EXPECT_TRUE(log[4].endsWith(" -     DoShutDownStuff() - END"));
        EXPECT_TRUE(log[5].endsWith(" - KILLING PROCESS (should be last line in log)"));
    }
}

TEST_F(QuavixProgram, KeepsUnsavedWorkWhenASignalComesDuringTheQuestion) {
    const QString copy = program_.File("state/quavix/unsaved-001.QVX");
    const QString lock = program_.File("state/quavix/unsaved-001.lock");
    ASSERT_TRUE(QDir(program_.File("state")).mkpath("quavix"));
    program_.Put("state/quavix/unsaved-001.QVX",
                 "Quavix by Dastrel-204 file format\r\nMUSICLISTSTART\r\nQuarter C4 - -\r\n");
    program_.Start({});
    // It holds the lock for as long as its question stands open.
    ASSERT_TRUE(program_.WaitUntil([&] { return QFile::exists(lock); }));
    WaitUntilItCatches(SIGTERM);
    kill(static_cast<pid_t>(program_.Id()), SIGTERM);
    EXPECT_EQ(program_.ExitCode(), 0);
    EXPECT_TRUE(QFile::exists(copy));
}

}  // namespace
}  // namespace quavix
