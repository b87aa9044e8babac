// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quavix {

/// The machine's serial ports; at most one is open: 115,200 baud, 8 data bits, no parity, 1 stop bit, no flow
/// control. Incoming data is not read.
///
/// Thread: the user-interface thread. No call waits for the device, and none runs handlers except that of
/// WhenLost(). No call throws.
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    /// Returns the names of the present ports, most likely one first.
    virtual std::vector<std::string> Names() = 0;

    /// Closes the open port and opens another. Returns an empty text, or a short reason if that fails; no
    /// port is open then. If the process dies in any way while the port is open, the system sends
    /// `lastWords`.
    virtual std::string Open(const std::string& name, const std::string& lastWords) = 0;

    /// Sends pending bytes and closes the port. Does nothing if no port is open.
    virtual void Close() = 0;

    /// Sends bytes unchanged. Ignores them if no port is open.
    virtual void Write(const std::string& bytes) = 0;

    /// Sets the handler for the loss of the open port, e.g. an unplugged adapter. It is called once, with the
    /// reason, from the event loop or from Write(), after the port has been closed.
    virtual void WhenLost(std::function<void(const std::string& reason)> handler) = 0;
};

}  // namespace quavix
