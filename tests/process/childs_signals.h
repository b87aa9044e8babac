// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace quavix {

/// Gives all signals of a forked child their default effect: its parents may ignore some of them, and the
/// sound server's library blocks some.
inline void ResetSignals() {
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

}  // namespace quavix
