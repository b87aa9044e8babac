// SPDX-License-Identifier: MIT
#pragma once

#include "ports/serial_port.h"

namespace quavix {

/// Stands where no serial port is to be used.
class AbsentSerialPort : public SerialPort {
  public:
    std::vector<std::string> Names() override { return {}; }
    std::string Open(const std::string&, const std::string&) override { return "there is none"; }
    void Close() override {}
    void Write(const std::string&) override {}
    void WhenLost(std::function<void(const std::string&)>) override {}
};

}  // namespace quavix
