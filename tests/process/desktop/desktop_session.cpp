// SPDX-License-Identifier: MIT
#include "desktop_session.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QUuid>

#include "process/patience.h"

namespace quavix::test {
namespace {

std::runtime_error Problem(const QString& what) {
    return std::runtime_error(what.toStdString());
}

void End(QProcess& process) {
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (!process.waitForFinished(PatienceMs)) {
        process.kill();
        process.waitForFinished(PatienceMs);
    }
}

}  // namespace

DesktopSession::DesktopSession() : environment_(QProcessEnvironment::systemEnvironment()) {
    // Keeps the tests independent of the desktop that they were started from.
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "DBUS_SESSION_BUS_ADDRESS",
                             "AT_SPI_BUS_ADDRESS", "XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORMTHEME",
                             "QT_STYLE_OVERRIDE", "QT_ACCESSIBILITY", "QT_SCALE_FACTOR", "NO_AT_BRIDGE"})
        environment_.remove(name);
    environment_.insert("HOME", folder_.path());
    environment_.insert("XDG_RUNTIME_DIR", folder_.path());
    environment_.insert("XDG_CACHE_HOME", folder_.path());
    environment_.insert("XDG_CONFIG_HOME", folder_.path());
    environment_.insert("XDG_STATE_HOME", folder_.filePath("state"));
    environment_.insert("GSETTINGS_BACKEND", "memory");
    environment_.insert("LC_ALL", "C.UTF-8");
    // A display that resets when its last program is gone turns away one that comes at that moment.
    const QString display = StartAndReadLine(
        display_, "Xvfb", {"-displayfd", "1", "-screen", "0", "1366x768x24", "-noreset", "-nolisten", "tcp"});
    environment_.insert("DISPLAY", ":" + display);
    const QString session =
        StartAndReadLine(bus_, "dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    environment_.insert("DBUS_SESSION_BUS_ADDRESS", session);
    environment_.insert("QT_QPA_PLATFORM", "xcb");
    environment_.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    environment_.insert("QUAVIX_SPEAKER", "silent");

    const QString address = AddressOfAccessibilityBus(session);
    accessibilityName_ = QUuid::createUuid().toString();
    if (!QDBusConnection::connectToBus(address, accessibilityName_).isConnected())
        throw Problem("no connection to the bus of assistive technology at " + address);
}

DesktopSession::~DesktopSession() {
    QDBusConnection::disconnectFromBus(accessibilityName_);
    // The services that a bus has started end with it.
    End(bus_);
    End(display_);
}

QString DesktopSession::StartAndReadLine(QProcess& process, const QString& program,
                                         const QStringList& arguments) {
    process.setProcessEnvironment(environment_);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process.start(program, arguments);
    QElapsedTimer waited;
    waited.start();
    while (!process.canReadLine()) {
        if (waited.hasExpired(PatienceMs) || process.state() == QProcess::NotRunning ||
            (!process.waitForReadyRead(PatienceMs) && !process.canReadLine()))
            throw Problem(program + " does not start: " + process.errorString());
    }
    return QString::fromUtf8(process.readLine()).trimmed();
}

/// Asking starts the service, which programs that start afterwards find.
QString DesktopSession::AddressOfAccessibilityBus(const QString& sessionAddress) {
    const QString name = QUuid::createUuid().toString();
    QDBusMessage reply;
    {
        const QDBusConnection session = QDBusConnection::connectToBus(sessionAddress, name);
        reply = session.call(
            QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"),
            QDBus::Block, PatienceMs);
    }
    QDBusConnection::disconnectFromBus(name);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw Problem("no bus of assistive technology: " + reply.errorMessage());
    return reply.arguments().value(0).toString();
}

}  // namespace quavix::test
