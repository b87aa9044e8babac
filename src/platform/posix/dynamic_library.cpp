// SPDX-License-Identifier: MIT
#include "platform/common/dynamic_library.h"

#include <dlfcn.h>

namespace quavix {

std::unique_ptr<DynamicLibrary> DynamicLibrary::Load(const std::string& fileName, std::string& reason) {
    // A name without a folder would be searched for among the system's libraries.
    std::string path = fileName.find('/') == std::string::npos ? "./" + fileName : fileName;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        const char* error = dlerror();
        reason = error == nullptr ? "no reason is known" : error;
        return nullptr;
    }
    return std::unique_ptr<DynamicLibrary>(new DynamicLibrary(handle, std::move(path)));
}

DynamicLibrary::~DynamicLibrary() {
    dlclose(handle_);
}

void* DynamicLibrary::Symbol(const char* name) const {
    return dlsym(handle_, name);
}

void DynamicLibrary::Keep() {
    if (void* kept = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE | RTLD_NOLOAD))
        dlclose(kept);
}

}  // namespace quavix
