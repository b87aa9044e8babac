// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>
#include <type_traits>

#include "ports/message_boxes.h"
#include "shell/debug_log.h"

namespace quavix {

/// The boundary for run-time errors: every event handler runs inside one call of Run(), which logs an error
/// of the handler, shows it in a message box, and lets the program carry on.
class EventBoundary {
  public:
    EventBoundary(MessageBoxes& boxes, DebugLog& log) : boxes_(boxes), log_(log) {}

    /// Runs `body`; `handler` is the handler's name for the log. True if there was no error.
    bool Run(std::string_view handler, const std::function<void()>& body);

    /// Returns a function that calls Run() with `body`, and passes its arguments on if `body` takes them.
    /// `handler` must be a literal.
    template <typename Body>
    auto Wrap(const char* handler, Body body) {
        return [this, handler, body](const auto&... arguments) {
            Run(handler, [&] { Call(body, arguments...); });
        };
    }

  private:
    template <typename Body, typename... Arguments>
    static void Call(const Body& body, const Arguments&... arguments) {
        if constexpr (std::is_invocable_v<const Body&, const Arguments&...>)
            body(arguments...);
        else
            body();
    }
    void Report(std::string_view handler, int number, const char* text);

    MessageBoxes& boxes_;
    DebugLog& log_;
};

}  // namespace quavix
