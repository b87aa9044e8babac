// SPDX-License-Identifier: MIT
#include "quavix_process.h"

#include <stdexcept>

#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>

#include "accessible.h"
#include "patience.h"

namespace quavix::test {

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
