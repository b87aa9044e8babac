// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace quavix::test {

/// The program in a folder of its own, so that its marker files, its log and its recovery copies are its own
/// too. Killed at the end if it still runs.
class QuavixProcess {
  public:
    explicit QuavixProcess(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    ~QuavixProcess();
    QuavixProcess(const QuavixProcess&) = delete;
    QuavixProcess& operator=(const QuavixProcess&) = delete;

    /// Environment of the next start.
    QProcessEnvironment Environment;

    /// Throws std::runtime_error if it can't be started.
    void Start(const QStringList& arguments);

    /// Waits for its end. An end without an exit code fails the test.
    int ExitCode();

    /// Waits for the condition. False: the program has ended, or it takes longer than even a busy machine
    /// does, and the condition still doesn't hold. An accessible object that is gone makes it one that
    /// doesn't.
    bool WaitUntil(const std::function<bool()>& condition);

    qint64 Id() const { return process_.processId(); }
    QProcess& Process() { return process_; }

    /// Before the start: lets permissions hold for the program, even if it runs as the superuser.
    void HeedPermissions() { heedsPermissions_ = true; }

    /// Lets no file of the program grow, as if its disk were full.
    void FillDisk() const;
    /// Ends the effect of FillDisk().
    void FreeDisk() const;

    /// The path of a file in the program's own folder.
    QString File(const QString& name) const { return folder_.filePath(name); }
    /// Returns the content of a file in that folder; empty if there is none.
    QByteArray Content(const QString& name) const;
    void Put(const QString& name, const QByteArray& content) const;
    /// Installs the sound engine.
    void PutSoundEngine() const;

  private:
    QTemporaryDir folder_;
    QProcess process_;
    bool heedsPermissions_ = false;
};

}  // namespace quavix::test
