// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace quavix {

/// A library loaded from a file at run time. The destructor unloads it, unless it is kept. Each system
/// implements this class.
class DynamicLibrary {
  public:
    /// Returns null, with the system's message in `reason`, if the file can't be loaded.
    static std::unique_ptr<DynamicLibrary> Load(const std::string& fileName, std::string& reason);

    ~DynamicLibrary();
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;

    /// Returns a function of the library, or null if there is none of that name. `Type` is the function's
    /// type, as in Function<decltype(F)>("F").
    template <typename Type>
    Type* Function(const char* name) const {
        return reinterpret_cast<Type*>(Symbol(name));
    }

    bool Has(const std::string& name) const { return Symbol(name.c_str()) != nullptr; }

    /// Keeps the library loaded until the process ends, because its threads may still run.
    void Keep();

  private:
    DynamicLibrary(void* handle, std::string path) : handle_(handle), path_(std::move(path)) {}
    void* Symbol(const char* name) const;

    void* handle_;
    std::string path_;
};

}  // namespace quavix
