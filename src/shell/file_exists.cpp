// SPDX-License-Identifier: MIT
#include "shell/file_exists.h"

#include <filesystem>

namespace quavix {

bool FileExists(const std::string& fileName, Files& files, DebugLog& log) {
    if (fileName.empty() || fileName.ends_with('\\') || fileName.ends_with('/'))
        return false;
    const bool exists = files.FindsNormalFile(fileName);
    log.Text("FileExists(\"{}\") = {}", fileName, LogFlag(exists));
    return exists;
}

std::string FileInFolder(const std::string& folder, const std::string& name) {
    return (std::filesystem::path(folder) / name).string();
}

}  // namespace quavix
