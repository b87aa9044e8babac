// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/common/dynamic_library.h"

namespace quavix {

/// The interface of a module of the program's: functions "QuavixNAMEVersion" and "QuavixNAMEInit", and those
/// of its own.
struct ModuleInterface {
    /// NAME, e.g. "MidiFile".
    std::string Name;
    std::uint32_t Version;
    /// Names of the functions of its own.
    std::vector<std::string> Functions;
};

/// Loads and initializes a module, which stays in the process to its end. Null, with `problem` a sentence for
/// the user, if there is no such file, it is no module or not of this interface and version, or refuses to
/// start.
std::unique_ptr<DynamicLibrary> LoadModule(const std::string& fileName, const ModuleInterface& interface,
                                           std::string& problem);

/// Loads a control and calls its entry for installers, DllRegisterServer. True: the control says that it can
/// be used. Otherwise `problem` is a sentence that says why not.
bool RegisterControl(const std::string& fileName, std::string& problem);

}  // namespace quavix
