// SPDX-License-Identifier: MIT
#include "simulation/simulated_serial_port.h"

#include <algorithm>

namespace quavix {

std::string SimulatedSerialPort::Open(const std::string& name, const std::string& lastWords) {
    Close();
    if (std::find(Present.begin(), Present.end(), name) == Present.end())
        return "no such device";
    if (Busy.contains(name))
        return "in use by another program";
    Record("serial open " + name);
    open_ = name;
    lastWords_ = lastWords;
    isGone_ = false;
    return {};
}

void SimulatedSerialPort::Close() {
    if (open_.empty())
        return;
    Record("serial close");
    open_.clear();
}

void SimulatedSerialPort::Write(const std::string& bytes) {
    if (open_.empty())
        return;
    if (isGone_) {
        Pull();
        return;
    }
    std::string text;
    for (const char byte : bytes)
        text += byte == '\r' ? std::string("\\r") : std::string(1, byte);
    Record("serial " + text);
}

void SimulatedSerialPort::Pull() {
    Record("serial lost");
    std::erase(Present, open_);
    open_.clear();
    if (whenLost_)
        whenLost_("the device is gone");
}

}  // namespace quavix
