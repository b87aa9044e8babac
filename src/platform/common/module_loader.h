// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/common/dynamic_library.h"

namespace quavix {

/// Interface of a module: the functions "QuavixNAMEVersion" and "QuavixNAMEInit", and its own ones.
struct ModuleInterface {
    /// NAME, e.g. "MidiFile".
    std::string Name;
    std::uint32_t Version;
    /// Names of its own functions.
    std::vector<std::string> Functions;
};

/// Loads and initializes a module, which stays loaded until the process ends. Returns null, with `problem` a
/// sentence for the user, if the file is missing, is not a module of this interface and version, or fails to
/// start.
std::unique_ptr<DynamicLibrary> LoadModule(const std::string& fileName, const ModuleInterface& interface,
                                           std::string& problem);

/// Loads a control and calls its function for installers, DllRegisterServer. Returns true if the control
/// reports that it can be used; otherwise `problem` is a sentence with the reason.
bool RegisterControl(const std::string& fileName, std::string& problem);

}  // namespace quavix
