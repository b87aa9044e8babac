// SPDX-License-Identifier: MIT
#include "platform/common/environment.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace quavix {
namespace {

/// Returns the program's folder in one of the user's base folders; a relative base is ignored.
std::string FolderIn(const char* base, const std::string& otherwiseBelowHome) {
    const std::string folder = FromEnvironment(base);
    return (folder.starts_with('/') ? folder : FromEnvironment("HOME") + otherwiseBelowHome) + "/quavix";
}

}  // namespace

std::string FromEnvironment(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

void SetInEnvironment(const char* name, const char* value) {
    setenv(name, value, 0);
}

std::string WinFolderFromEnvironment() {
    const std::string folder = FromEnvironment("windir");
    return folder.empty() ? FolderIn("XDG_DATA_HOME", "/.local/share") : folder;
}

std::string StateFolderFromEnvironment() {
    return FolderIn("XDG_STATE_HOME", "/.local/state");
}

std::string FolderOfProgram() {
    return std::filesystem::path(FileOfProgram()).parent_path().string();
}

bool StandardErrorIsTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

}  // namespace quavix
