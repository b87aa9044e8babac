// SPDX-License-Identifier: MIT
#include "platform/common/module_loader.h"

#include <filesystem>

#include "shell/utf8_path.h"

namespace quavix {
namespace {

std::string LacksFunction(const std::string& fileName, const std::string& name) {
    return "The file \"" + fileName + "\" lacks the function " + name + ".";
}

/// Returns an empty text, or the reason why the library is no module of this interface.
std::string ProblemWith(const DynamicLibrary& library, const std::string& fileName,
                        const ModuleInterface& interface) {
    const std::string versionName = "Quavix" + interface.Name + "Version";
    const std::string initName = "Quavix" + interface.Name + "Init";
    // Checks the version first: another version may have other functions.
    for (const std::string& name : {versionName, initName}) {
        if (!library.Has(name))
            return LacksFunction(fileName, name);
    }
    const std::uint32_t version = library.Function<std::uint32_t()>(versionName.c_str())();
    if (version != interface.Version)
        return "The file \"" + fileName + "\" has version " + std::to_string(version) +
               " of its interface, but the program needs version " + std::to_string(interface.Version) + ".";
    for (const std::string& name : interface.Functions) {
        if (!library.Has(name))
            return LacksFunction(fileName, name);
    }
    const std::int32_t result =
        library.Function<std::int32_t(std::uint32_t)>(initName.c_str())(interface.Version);
    if (result != 0)
        return "The file \"" + fileName + "\" could not be started (result " + std::to_string(result) + ").";
    return {};
}

}  // namespace

std::unique_ptr<DynamicLibrary> LoadModule(const std::string& fileName, const ModuleInterface& interface,
                                           std::string& problem) {
    std::error_code error;
    if (!std::filesystem::exists(PathOf(fileName), error)) {
        problem = "The file \"" + fileName + "\" is missing.";
        return nullptr;
    }
    auto module = DynamicLibrary::Load(fileName, problem);
    if (!module) {
        problem = "The file \"" + fileName + "\" is no module that can be loaded: " + problem + ".";
        return nullptr;
    }
    // A rejected module is unloaded, so that a better file can replace it.
    problem = ProblemWith(*module, fileName, interface);
    if (!problem.empty())
        return nullptr;
    module->Keep();
    return module;
}

bool RegisterControl(const std::string& fileName, std::string& problem) {
    const auto control = DynamicLibrary::Load(fileName, problem);
    if (!control) {
        problem = "The control can't be loaded: " + problem;
        return false;
    }
    control->Keep();
    const auto registerServer = control->Function<std::int32_t()>("DllRegisterServer");
    if (registerServer == nullptr) {
        problem = LacksFunction(fileName, "DllRegisterServer");
        return false;
    }
    const std::int32_t result = registerServer();
    if (result != 0)
        problem =
            "The file \"" + fileName + "\" refuses to be registered (result " + std::to_string(result) + ").";
    return result == 0;
}

}  // namespace quavix
