// SPDX-License-Identifier: MIT
#include "platform/linux/user_folders.h"

#include <cstdlib>
#include <filesystem>

namespace quavix {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

std::string WinFolderFromEnvironment() {
    if (std::string folder = Environment("windir"); !folder.empty())
        return folder;
    const std::string data = Environment("XDG_DATA_HOME");
    return (data.empty() ? Environment("HOME") + "/.local/share" : data) + "/quavix";
}

std::string StateFolderFromEnvironment() {
    const std::string state = Environment("XDG_STATE_HOME");
    return (state.starts_with('/') ? state : Environment("HOME") + "/.local/state") + "/quavix";
}

std::string FolderOfProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace quavix
