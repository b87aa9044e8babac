// SPDX-License-Identifier: MIT
#include "platform/common/loaded_module.h"

#include <dlfcn.h>
#include <unistd.h>

namespace quavix {
namespace {

std::string LacksFunction(const std::string& quotedFile, const std::string& name) {
    return "The file " + quotedFile + " lacks the function " + name + ".";
}

std::string DynamicError() {
    const char* error = dlerror();
    return error == nullptr ? "no reason is known" : error;
}

}  // namespace

LoadedModule::~LoadedModule() {
    dlclose(handle_);
}

void* LoadedModule::Symbol(const char* name) const {
    return dlsym(handle_, name);
}

std::unique_ptr<LoadedModule> LoadedModule::Load(const std::string& fileName, const Interface& interface,
                                                 std::string& problem) {
    const std::string quoted = "\"" + fileName + "\"";
    if (access(fileName.c_str(), F_OK) != 0) {
        problem = "The file " + quoted + " is missing.";
        return nullptr;
    }
    // A name without a folder would be searched for where the system keeps its libraries.
    const std::string path = fileName.find('/') == std::string::npos ? "./" + fileName : fileName;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        problem = "The file " + quoted + " is no module that can be loaded: " + DynamicError() + ".";
        return nullptr;
    }
    std::unique_ptr<LoadedModule> module(new LoadedModule(handle));
    const std::string versionName = "Quavix" + interface.Name + "Version";
    const std::string initName = "Quavix" + interface.Name + "Init";
    // The version first: another one may well have other functions.
    for (const std::string& name : {versionName, initName}) {
        if (module->Symbol(name.c_str()) == nullptr) {
            problem = LacksFunction(quoted, name);
            return nullptr;
        }
    }
    const std::uint32_t version = module->Function<std::uint32_t()>(versionName.c_str())();
    if (version != interface.Version) {
        problem = "The file " + quoted + " has version " + std::to_string(version) +
                  " of its interface, but the program needs version " + std::to_string(interface.Version) +
                  ".";
        return nullptr;
    }
    for (const std::string& name : interface.Functions) {
        if (module->Symbol(name.c_str()) == nullptr) {
            problem = LacksFunction(quoted, name);
            return nullptr;
        }
    }
    const std::int32_t result =
        module->Function<std::int32_t(std::uint32_t)>(initName.c_str())(interface.Version);
    if (result != 0) {
        problem = "The file " + quoted + " could not be started (result " + std::to_string(result) + ").";
        return nullptr;
    }
    // Kept in the process from here on; a module that is refused is let go, so that a better file can take
    // its place.
    if (void* kept = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE | RTLD_NOLOAD))
        dlclose(kept);
    problem.clear();
    return module;
}

}  // namespace quavix
