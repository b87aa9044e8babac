// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ports/event_pump.h"

namespace quavix {

/// The connection to the desktop; one at a time, made before any window. Without a display, the constructor
/// prints an error on standard error and ends the process with status 1.
class QtApplication {
  public:
    /// Removes the toolkit's own options from the command line; both arguments must outlive the object.
    QtApplication(int& argc, char** argv, const std::string& name, const std::string& version);
    ~QtApplication();
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;

    /// Returns the rest of the command line, without the program's own name.
    std::vector<std::string> Arguments() const;

    /// Calls `handler` once from the event loop when a handle is signalled.
    void WhenSignalled(WaitHandle handle, std::function<void()> handler);

    /// Handles events until the last window is closed.
    int Run();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace quavix
