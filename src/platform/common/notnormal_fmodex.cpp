// SPDX-License-Identifier: MIT
#include "platform/common/notnormal_fmodex.h"

#include "platform/common/dynamic_library.h"
#include "shell/runtime_error.h"

namespace quavix {

NOTNORMALfmodex::NOTNORMALfmodex() {
    ForEachFunction([](const char*, auto& function) {
        function = [](auto...) -> Result { throw RuntimeError(RuntimeError::FileNotFound, "FMODex.dll"); };
    });
}

std::string NOTNORMALfmodex::Load(const std::string& fileName) {
    std::string reason;
    const auto library = DynamicLibrary::Load(fileName, reason);
    if (!library)
        return reason;
    std::string missing;
    ForEachFunction([&](const char* name, const auto&) {
        if (!library->Has(name))
            missing += std::string(missing.empty() ? "" : ", ") + name;
    });
    if (!missing.empty())
        return "it lacks " + missing;
    library->Keep();
    ForEachFunction([&]<typename Type>(const char* name, std::function<Type>& function) {
        function = library->Function<Type>(name);
    });
    return {};
}

}  // namespace quavix
