// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// Loads a control and calls its entry for installers, DllRegisterServer. True: the control says that it can
/// be used. Otherwise `problem` is a sentence that says why not.
bool RegisterControl(const std::string& fileName, std::string& problem);

}  // namespace quavix
