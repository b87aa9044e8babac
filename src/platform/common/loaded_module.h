// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quavix {

/// A module of the program's that was loaded from a file and speaks the interface that the program knows. It
/// stays in the process to its end, as threads of what it uses may.
class LoadedModule {
  public:
    /// What every module has: functions "QuavixNAMEVersion" and "QuavixNAMEInit", and those of its own.
    struct Interface {
        /// NAME, e.g. "MidiFile".
        std::string Name;
        std::uint32_t Version;
        /// Names of the functions that Function() will be asked for.
        std::vector<std::string> Functions;
    };

    /// Loads and initializes a module. Null, with `problem` a sentence for the user, where there is no such
    /// file, it is no module or not of this interface and version, or refuses to start.
    static std::unique_ptr<LoadedModule> Load(const std::string& fileName, const Interface& interface,
                                              std::string& problem);

    /// A function that the interface names. `Type` is the function's type, as in Function<decltype(F)>("F").
    template <typename Type>
    Type* Function(const char* name) const {
        return reinterpret_cast<Type*>(Symbol(name));
    }

    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

  private:
    explicit LoadedModule(void* handle) : handle_(handle) {}
    void* Symbol(const char* name) const;

    void* handle_;
};

}  // namespace quavix
