// SPDX-License-Identifier: MIT
#include "platform/common/user_folders.h"

#include <cstdlib>
#include <filesystem>

namespace quavix {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The program's folder in one of the user's base folders; a base that doesn't start at the root counts as
/// none.
std::string FolderIn(const char* base, const std::string& otherwiseBelowHome) {
    const std::string folder = Environment(base);
    return (folder.starts_with('/') ? folder : Environment("HOME") + otherwiseBelowHome) + "/quavix";
}

}  // namespace

std::string WinFolderFromEnvironment() {
    const std::string folder = Environment("windir");
    return folder.empty() ? FolderIn("XDG_DATA_HOME", "/.local/share") : folder;
}

std::string StateFolderFromEnvironment() {
    return FolderIn("XDG_STATE_HOME", "/.local/state");
}

std::string FolderOfProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace quavix
