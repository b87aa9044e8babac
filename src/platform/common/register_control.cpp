// SPDX-License-Identifier: MIT
#include "platform/common/register_control.h"

#include <cstdint>
#include <dlfcn.h>

namespace quavix {

bool RegisterControl(const std::string& fileName, std::string& problem) {
    // A name without a folder would be searched for where the system keeps its libraries.
    const std::string path = fileName.find('/') == std::string::npos ? "./" + fileName : fileName;
    void* control = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (control == nullptr) {
        const char* error = dlerror();
        problem = "The control can't be loaded: " + std::string(error == nullptr ? fileName : error);
        return false;
    }
    const auto registerServer = reinterpret_cast<std::int32_t (*)()>(dlsym(control, "DllRegisterServer"));
    if (registerServer == nullptr) {
        problem = "The file \"" + fileName + "\" lacks the function DllRegisterServer.";
        return false;
    }
    const std::int32_t result = registerServer();
    if (result != 0)
        problem =
            "The file \"" + fileName + "\" refuses to be registered (result " + std::to_string(result) + ").";
    return result == 0;
}

}  // namespace quavix
