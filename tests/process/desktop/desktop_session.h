// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace quavix::test {

/// A desktop of the test's own: a display that nobody sees, a message bus, and on it the bus of assistive
/// technology. All of it ends with this, and with the test, however that ends.
///
/// Needs the programs Xvfb, dbus-daemon and the services of at-spi2-core; throws std::runtime_error where
/// they don't come up.
class DesktopSession {
  public:
    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    /// What a program has to be started with to be on this desktop, and seen by assistive technology.
    QProcessEnvironment Environment() const { return environment_; }

    /// The bus on which programs show themselves to assistive technology.
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
