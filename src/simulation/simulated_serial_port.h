// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "ports/serial_port.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// Serial ports that write all calls to the timeline. A carriage return is written as "\r".
class SimulatedSerialPort : public SerialPort, private Recorder {
  public:
    using Recorder::Recorder;

    std::vector<std::string> Names() override { return Present; }
    std::string Open(const std::string& name, const std::string& lastWords) override;
    void Close() override;
    void Write(const std::string& bytes) override;
    void WhenLost(std::function<void(const std::string&)> handler) override {
        whenLost_ = std::move(handler);
    }

    /// Unplugs the open port; noticed at once.
    void Pull();
    /// Unplugs the open port; noticed by the next Write().
    void PullUnnoticed() { isGone_ = true; }

    /// Returns the name of the open port, empty for none, and the last words it was opened with.
    const std::string& OpenName() const { return open_; }
    const std::string& LastWords() const { return lastWords_; }

    std::vector<std::string> Present = {"ttyUSB0"};
    /// Ports that another program has open.
    std::set<std::string> Busy;

  private:
    std::function<void(const std::string&)> whenLost_;
    std::string open_;
    std::string lastWords_;
    bool isGone_ = false;
};

}  // namespace quavix
