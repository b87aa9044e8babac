// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/file_descriptor.h"
#include "process/patience.h"

namespace quavix {

/// A pair of pseudo-terminals: one end is a serial port for the program, the other the device connected to
/// it.
class PseudoTerminal {
  public:
    PseudoTerminal() : device_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        EXPECT_EQ(grantpt(device_.Get()), 0);
        EXPECT_EQ(unlockpt(device_.Get()), 0);
        name_ = ptsname(device_.Get());
        // Held open, or the device would see an end before the program opens the port.
        port_ = FileDescriptor(open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        EXPECT_TRUE(port_);
    }

    const std::string& PortName() const { return name_; }

    /// Returns all that has arrived so far.
    std::string Arrived() {
        for (pollfd waiting{device_.Get(), POLLIN, 0}; poll(&waiting, 1, 0) == 1 && Read();) {
        }
        return arrived_;
    }

    /// Waits until that much has arrived, PatienceMs for each piece.
    const std::string& WaitFor(std::string_view text) {
        while (arrived_.size() < text.size()) {
            pollfd waiting{device_.Get(), POLLIN, 0};
            if (poll(&waiting, 1, test::PatienceMs) != 1 || !Read())
                break;
        }
        return arrived_;
    }

    void Send(std::string_view bytes) const {
        EXPECT_EQ(write(device_.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    termios Settings() const {
        termios settings{};
        EXPECT_EQ(tcgetattr(port_.Get(), &settings), 0);
        return settings;
    }

    /// Closes the device's end, as if the adapter were unplugged.
    void Pull() {
        port_.Close();
        device_.Close();
    }

  private:
    bool Read() {
        char bytes[256];
        const ssize_t got = read(device_.Get(), bytes, sizeof bytes);
        if (got > 0)
            arrived_.append(bytes, static_cast<std::size_t>(got));
        return got > 0;
    }

    FileDescriptor device_;
    FileDescriptor port_;
    std::string name_;
    std::string arrived_;
};

}  // namespace quavix
