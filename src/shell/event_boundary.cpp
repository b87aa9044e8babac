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
    const auto report = [&, logIndent = log_.LogIndent()](int number, const char* text) {
        // Blocks that the error has left get no closing lines.
        log_.SetLogIndent(logIndent);
        Report(handler, number, text);
    };
    try {
        body();
        return true;
    } catch (const RuntimeError& error) {
        report(error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        report(OutOfMemory, "Out of memory");
    } catch (const std::exception& error) {
        report(InternalError, error.what());
    }
    return false;
}

void EventBoundary::Report(std::string_view handler, int number, const char* text) {
    try {
        log_.Text("Run-time error '{}' in {}: {}", number, handler, text);
    } catch (const RuntimeError&) {
        // Logging itself may fail; the message box is still shown.
    }
    boxes_.Show({.Title = program::Title,
                 .Text = fmt::format("Run-time error '{}':\n\n{}", number, text),
                 .Icon = BoxIcon::Warning});
}

}  // namespace quavix
