// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "platform/common/last_words.h"
#include "ports/serial_port.h"

class QSerialPort;

namespace quavix {

/// The serial ports of this machine. Needs the application object.
class QtSerialPort : public SerialPort {
  public:
    /// `wanted` is a device set by the user ("/dev/rfcomm0"); it is then the only one. Otherwise the first
    /// search for ports starts here on its own thread, because it takes as long as making a window.
    explicit QtSerialPort(std::string wanted = {});
    ~QtSerialPort() override;

    std::vector<std::string> Names() override;
    std::string Open(const std::string& name, const std::string& lastWords) override;
    void Close() override;
    void Write(const std::string& bytes) override;
    void WhenLost(std::function<void(const std::string&)> handler) override {
        whenLost_ = std::move(handler);
    }

  private:
    struct DeleteLater {
        void operator()(QSerialPort* port) const;
    };

    void Lost(const std::string& reason);

    std::string wanted_;
    std::future<std::vector<std::string>> firstNames_;
    std::unique_ptr<QSerialPort, DeleteLater> port_;
    LastWords lastWords_;
    std::function<void(const std::string&)> whenLost_;
};

}  // namespace quavix
