// SPDX-License-Identifier: MIT
#include "quavix_process.h"

#include <algorithm>
#include <csignal>
#include <linux/capability.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>

#include "accessible.h"
#include "process/patience.h"

namespace quavix::test {
namespace {

void LimitFileSize(qint64 process, rlim_t size) {
    rlimit limit{};
    const auto id = static_cast<pid_t>(process);
    EXPECT_EQ(::prlimit(id, RLIMIT_FSIZE, nullptr, &limit), 0);
    limit.rlim_cur = std::min(size, limit.rlim_max);
    EXPECT_EQ(::prlimit(id, RLIMIT_FSIZE, &limit, nullptr), 0);
}

}  // namespace

QuavixProcess::QuavixProcess(const QProcessEnvironment& environment) : Environment(environment) {
    Environment.insert("QUAVIX_SPEAKER", "silent");
    Environment.insert("XDG_STATE_HOME", File("state"));
    QFile::copy(QUAVIX_PROGRAM, File("quavix"));
    process_.setProcessChannelMode(QProcess::SeparateChannels);
}

QuavixProcess::~QuavixProcess() {
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.kill();
    process_.waitForFinished(PatienceMs);
}

void QuavixProcess::Start(const QStringList& arguments) {
    process_.setProcessEnvironment(Environment);
    process_.setChildProcessModifier([heedsPermissions = heedsPermissions_] {
        // A file that may not grow then makes writing fail, instead of ending the program.
        std::signal(SIGXFSZ, SIG_IGN);
        if (heedsPermissions)
            ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    });
    process_.start(File("quavix"), arguments);
    if (!process_.waitForStarted(PatienceMs))
        throw std::runtime_error("the program does not start: " + process_.errorString().toStdString());
}

int QuavixProcess::ExitCode() {
    EXPECT_TRUE(process_.state() == QProcess::NotRunning || process_.waitForFinished(PatienceMs));
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process_.state(), QProcess::NotRunning);
    return process_.exitCode();
}

bool QuavixProcess::WaitUntil(const std::function<bool()>& condition) {
    const auto holds = [&] {
        try {
            return condition();
        } catch (const AccessibleError&) {
            return false;
        }
    };
    constexpr int BetweenLooksMs = 10;
    QElapsedTimer waited;
    waited.start();
    while (!holds()) {
        if (waited.hasExpired(PatienceMs) || process_.state() == QProcess::NotRunning)
            return false;
        if (process_.waitForFinished(BetweenLooksMs))
            return holds();
    }
    return true;
}

void QuavixProcess::FillDisk() const {
    LimitFileSize(Id(), 0);
}

void QuavixProcess::FreeDisk() const {
    LimitFileSize(Id(), RLIM_INFINITY);
}

QByteArray QuavixProcess::Content(const QString& name) const {
    QFile file(File(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void QuavixProcess::Put(const QString& name, const QByteArray& content) const {
    QFile file(File(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("can't write " + name.toStdString());
}

void QuavixProcess::PutSoundEngine() const {
    if (!QFile::copy(QUAVIX_SOUND_ENGINE, File("FMODex.dll")))
        throw std::runtime_error("can't copy the sound engine");
}

}  // namespace quavix::test
