// SPDX-License-Identifier: MIT
#include <csignal>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "shell/program_info.h"

namespace quavix {
namespace {

constexpr int PatienceMs = 60'000;

/// The program in a folder of its own, so that its marker files and its log are its own too.
class QuavixProgram : public testing::Test {
  protected:
    QuavixProgram() {
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert("QUAVIX_SPEAKER", "silent");
        environment_.insert("QT_QPA_PLATFORM", "offscreen");
        environment_.insert("XDG_RUNTIME_DIR", folder_.path());
        environment_.insert("XDG_STATE_HOME", folder_.filePath("state"));
        QFile::copy(QUAVIX_PROGRAM, folder_.filePath("quavix"));
    }

    void Start(const QStringList& arguments) {
        process_.setProcessEnvironment(environment_);
        process_.start(folder_.filePath("quavix"), arguments);
        ASSERT_TRUE(process_.waitForStarted(PatienceMs));
    }
    int ExitCode() {
        EXPECT_TRUE(process_.waitForFinished(PatienceMs));
        EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
        return process_.exitCode();
    }
    QString Log() {
        QFile log(folder_.filePath("debuglog.txt"));
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }
    void Touch(const char* name) { QFile(folder_.filePath(name)).open(QIODevice::WriteOnly); }

    /// The kernel says which signals a process has handlers for.
    void WaitUntilItCatches(int signal) {
        const QString name = QString("/proc/%1/status").arg(process_.processId());
        bool caught = false;
        while (!caught && !process_.waitForFinished(5)) {
            QFile status(name);
            ASSERT_TRUE(status.open(QIODevice::ReadOnly));
            for (const QByteArray& line : status.readAll().split('\n')) {
                if (line.startsWith("SigCgt:"))
                    caught = line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1;
            }
        }
        ASSERT_TRUE(caught);
    }

    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QProcess process_;
};

TEST_F(QuavixProgram, AnswersVersionAndHelpWithoutADisplay) {
    environment_.remove("QT_QPA_PLATFORM");
    environment_.remove("DISPLAY");
    Start({"--version"});
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_EQ(process_.readAllStandardOutput(), QByteArray("quavix ") + program::VersionText + "\n");
    Start({"--help"});
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_TRUE(process_.readAllStandardOutput().startsWith("Usage: quavix"));
}

TEST_F(QuavixProgram, SaysThatThereIsNoDisplay) {
    environment_.insert("QT_QPA_PLATFORM", "xcb");
    environment_.remove("WAYLAND_DISPLAY");
    environment_.insert("DISPLAY", ":654321");
    Start({});
    EXPECT_EQ(ExitCode(), 1);
    EXPECT_TRUE(process_.readAllStandardError().contains("there is no display"));
}

TEST_F(QuavixProgram, ATerminationSignalClosesItInOrder) {
    Touch("logenable");  // the box about it then stands open, in a loop of its own
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        QFile::remove(folder_.filePath("debuglog.txt"));
        Start({});
        WaitUntilItCatches(signal);
        kill(static_cast<pid_t>(process_.processId()), signal);
        EXPECT_EQ(ExitCode(), 0);
        const QStringList log = Log().split("\r\n", Qt::SkipEmptyParts);
        ASSERT_EQ(log.size(), 4);
        EXPECT_TRUE(log[0].endsWith(" - [REQUEST TO CLOSE PROGRAM]"));
        EXPECT_TRUE(log[1].endsWith(" -     DoShutDownStuff() - START"));
        EXPECT_TRUE(log[2].endsWith(" -     DoShutDownStuff() - END"));
        EXPECT_TRUE(log[3].endsWith(" - KILLING PROCESS (should be last line in log)"));
    }
}

TEST_F(QuavixProgram, KeepsTheWorkThatItIsAskedAboutWhenItIsEndedMeanwhile) {
    const QString copy = folder_.filePath("state/quavix/unsaved-001.QVX");
    const QString lock = folder_.filePath("state/quavix/unsaved-001.lock");
    ASSERT_TRUE(QDir(folder_.path()).mkpath("state/quavix"));
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Quavix by Dastrel-204 file format\r\nMUSICLISTSTART\r\nQuarter C4 - -\r\n");
    file.close();
    Start({});
    // It holds the lock for as long as its question stands open.
    while (!QFile::exists(lock) && !process_.waitForFinished(5)) {
    }
    WaitUntilItCatches(SIGTERM);
    kill(static_cast<pid_t>(process_.processId()), SIGTERM);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_TRUE(QFile::exists(copy));
}

}  // namespace
}  // namespace quavix
