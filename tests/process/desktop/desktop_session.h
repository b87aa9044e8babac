// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace quavix::test {

/// A private desktop: an invisible display, a message bus, and on it the bus of assistive technology. All of
/// them end with this object, and also if the test's process is killed.
///
/// Needs the programs Xvfb, dbus-daemon and the services of at-spi2-core; throws std::runtime_error if they
/// can't be started.
class DesktopSession {
  public:
    DesktopSession();
    ~DesktopSession();

    /// Returns the environment for programs to be shown on this desktop and seen by assistive technology.
    QProcessEnvironment Environment() const { return environment_; }

    /// Returns the bus on which programs show themselves to assistive technology.
    QDBusConnection AccessibilityBus() const { return QDBusConnection(accessibilityName_); }

  private:
    QString StartAndReadLine(QProcess& process, const QString& program, const QStringList& arguments);
    QString AddressOfAccessibilityBus(const QString& sessionAddress);

    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QProcess display_;
    QProcess bus_;
    QString accessibilityName_;
};

}  // namespace quavix::test
