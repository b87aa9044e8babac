// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace quavix {

/// Converts a file name of the program (UTF-8) into a path of the system. If the system's names are bytes,
/// other bytes pass unchanged.
inline std::filesystem::path PathOf(const std::string& fileName) {
    return {std::u8string(fileName.begin(), fileName.end())};
}

}  // namespace quavix
