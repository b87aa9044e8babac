// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace quavix::bench {

using Watch = std::chrono::steady_clock;

/// A child process of the bench, ended with the object.
class Child {
  public:
    /// Starts a program with "NAME=value" settings added to this process's environment. `keepOpen` is a
    /// descriptor that it inherits under the same number, -1 for none. If the program can't be started, the
    /// child ends at once.
    Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
          int keepOpen = -1);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t Id() const { return id_; }

  private:
    pid_t id_ = -1;
};

/// A private X server without a visible screen and without a window manager: a window appears as soon as its
/// program asks for it. Throws std::runtime_error if Xvfb is missing.
class XDisplay {
  public:
    XDisplay();
    ~XDisplay();

    /// Returns "DISPLAY=:7" or the like, for the programs to be shown.
    const std::string& Setting() const { return setting_; }

    struct Shown {
        Watch::time_point Mapped;   ///< the window is on the screen
        Watch::time_point Painted;  ///< most of it has been drawn
    };
    /// Waits for the next window, until it has been drawn and has not changed for a while. Throws
    /// std::runtime_error after 30 s without one.
    Shown WaitForWindow();
    /// Waits until that window is gone because its program has ended.
    void WaitForItsEnd();

  private:
    explicit XDisplay(std::array<int, 2> number);
    xcb_generic_event_t* NextEvent(Watch::time_point deadline);

    Child server_;
    std::string setting_;
    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
    xcb_window_t window_ = 0;
    std::uint8_t damageNotify_ = 0;
};

}  // namespace quavix::bench
