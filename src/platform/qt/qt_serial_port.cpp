// SPDX-License-Identifier: MIT
#include "platform/qt/qt_serial_port.h"

#include <algorithm>
#include <utility>

#include <QFile>
#include <QSerialPort>
#include <QSerialPortInfo>

namespace quavix {
namespace {

std::vector<std::string> FindPorts() {
    QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    // Controllers are on adapters; built-in ports often have no socket.
    std::stable_partition(ports.begin(), ports.end(),
                          [](const QSerialPortInfo& port) { return port.hasVendorIdentifier(); });
    std::vector<std::string> names;
    for (const QSerialPortInfo& port : ports)
        names.push_back(QFile::encodeName(port.portName()).toStdString());
    return names;
}

}  // namespace

QtSerialPort::QtSerialPort(std::string wanted) : wanted_(std::move(wanted)) {
    if (wanted_.empty())
        firstNames_ = std::async(&FindPorts);
}

QtSerialPort::~QtSerialPort() {
    Close();
}

/// Deleted later, because a port may be closed by its own signal.
void QtSerialPort::DeleteLater::operator()(QSerialPort* port) const {
    port->disconnect();
    port->close();
    port->deleteLater();
}

std::vector<std::string> QtSerialPort::Names() {
    if (!wanted_.empty())
        return {wanted_};
    return firstNames_.valid() ? firstNames_.get() : FindPorts();
}

std::string QtSerialPort::Open(const std::string& name, const std::string& lastWords) {
    Close();
    std::unique_ptr<QSerialPort, DeleteLater> port(new QSerialPort);
    port->setPortName(QFile::decodeName(name.c_str()));
    port->setBaudRate(QSerialPort::Baud115200);
    port->setDataBits(QSerialPort::Data8);
    port->setParity(QSerialPort::NoParity);
    port->setStopBits(QSerialPort::OneStop);
    port->setFlowControl(QSerialPort::NoFlowControl);
    // Reading detects a lost port before the next command.
    if (!port->open(QIODevice::ReadWrite))
        return port->errorString().toStdString();
    if (!lastWords.empty() && !lastWords_.Leave(port->handle(), lastWords))
        return "nothing could look after it (" + lastWords_.Problem() + ")";
    QObject::connect(port.get(), &QSerialPort::readyRead, port.get(),
                     [port = port.get()] { port->readAll(); });
    QObject::connect(port.get(), &QSerialPort::errorOccurred, port.get(),
                     [this, port = port.get()](QSerialPort::SerialPortError error) {
                         if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError)
                             Lost("unplugged, or it has failed (" + port->errorString().toStdString() + ")");
                     });
    port_ = std::move(port);
    return {};
}

void QtSerialPort::Close() {
    if (!port_)
        return;
    constexpr int PatienceMs = 200;
    const auto port = std::exchange(port_, nullptr);
    port->disconnect();
    port->flush();
    if (port->bytesToWrite() > 0)
        port->waitForBytesWritten(PatienceMs);
    lastWords_.Withdraw();
}

void QtSerialPort::Write(const std::string& bytes) {
    if (!port_)
        return;
    port_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    // Sends at once, not when the event loop is next idle. The write may have closed a lost port.
    if (port_)
        port_->flush();
}

void QtSerialPort::Lost(const std::string& reason) {
    if (!port_)
        return;
    port_ = nullptr;
    lastWords_.Withdraw();
    if (whenLost_)
        whenLost_(reason);
}

}  // namespace quavix
