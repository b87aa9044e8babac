// SPDX-License-Identifier: MIT
#include "shell/event_boundary.h"

#include <exception>
#include <new>

#include "shell/program_info.h"
#include "shell/runtime_error.h"

namespace quavix {

bool EventBoundary::Run(std::string_view handler, const std::function<void()>& body) {
    constexpr int OutOfMemory = 7;
    constexpr int InternalError = 51;
    try {
        body();
        return true;
    } catch (const RuntimeError& error) {
        Report(handler, error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        Report(handler, OutOfMemory, "Out of memory");
    } catch (const std::exception& error) {
        Report(handler, InternalError, error.what());
    }
    return false;
}

void EventBoundary::Report(std::string_view handler, int number, const char* text) {
    try {
        log_.Text("Run-time error '{}' in {}: {}", number, handler, text);
    } catch (const RuntimeError&) {
        // The log itself may be what failed; the message box still tells.
    }
    boxes_.Show({.Title = program::Title,
                 .Text = fmt::format("Run-time error '{}':\n\n{}", number, text),
                 .Icon = BoxIcon::Warning});
}

}  // namespace quavix
