// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quavix {

/// The machine's serial ports, one of which the program may have open: 115,200 baud, 8 data bits, no parity,
/// 1 stop bit, no flow control. What the device at the other end sends is not read.
///
/// Thread: the user-interface thread. No call waits for the device or runs handlers, but for the one given to
/// WhenLost(). Nothing is thrown.
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    /// Names of the ports that are there now, the likeliest to be meant first.
    virtual std::vector<std::string> Names() = 0;

    /// Opens a port, in the place of one that is open. Returns an empty text, or why the port can't be had,
    /// in a few words; none is open then. `lastWords` is sent by the system should the process die, in
    /// whatever way, while the port is open.
    virtual std::string Open(const std::string& name, const std::string& lastWords) = 0;

    /// Sends what was written and closes the port. Without an open port it does nothing.
    virtual void Close() = 0;

    /// Sends bytes, as they are. Without an open port they are lost.
    virtual void Write(const std::string& bytes) = 0;

    /// `handler` is called with the reason when the open port is gone, as a pulled adapter is: out of the
    /// event loop or out of Write(), once, with the port closed already.
    virtual void WhenLost(std::function<void(const std::string& reason)> handler) = 0;
};

}  // namespace quavix
