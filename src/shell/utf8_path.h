// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace quavix {

/// A file name of the program's as a path of the system's. The program's are UTF-8 on every system; bytes
/// that are not pass unchanged where the system's names are bytes.
inline std::filesystem::path PathOf(const std::string& fileName) {
    return {std::u8string(fileName.begin(), fileName.end())};
}

}  // namespace quavix
