// SPDX-License-Identifier: MIT
#include "app/shutdown.h"

namespace quavix {
namespace {

template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (...) {
        // The program still ends.
    }
}

}  // namespace

void Shutdown::CloseProgram() {
    if (state_.ShuttingDown)
        return;
    state_.ShuttingDown = true;
    Try([this] { log_.LogText("[REQUEST TO CLOSE PROGRAM]"); });
    for (const auto& release : first_)
        Try(release);
    DoShutDownStuff();
    Try([this] { log_.LogText("KILLING PROCESS (should be last line in log)"); });
    end_.EndProcess();
}

void Shutdown::DoShutDownStuff() {
    Try([this] { log_.LogIndentInc("DoShutDownStuff() - START"); });
    for (const auto& release : releases_)
        Try(release);
    Try([this] { log_.LogIndentDec("DoShutDownStuff() - END"); });
}

}  // namespace quavix
