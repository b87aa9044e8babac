// SPDX-License-Identifier: MIT
#include "shell/file_access.h"

#include <array>

namespace quavix {

bool FileExists(const std::string& fileName, Files& files, DebugLog& log) {
    if (fileName.empty() || fileName.ends_with('\\') || fileName.ends_with('/'))
        return false;
    const bool exists = files.FindsNormalFile(fileName);
    log.Text("FileExists(\"{}\") = {}", fileName, LogFlag(exists));
    return exists;
}

std::string FileInFolder(const std::string& folder, const std::string& name) {
    return folder.empty() || folder.ends_with('/') ? folder + name : folder + '/' + name;
}

bool MatchesWildcards(std::string_view name, std::string_view pattern) {
    constexpr auto None = std::string_view::npos;
    std::size_t n = 0;
    std::size_t p = 0;
    // Position to resume at after a mismatch: the last "*" may match one more character.
    std::size_t starPattern = None;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (starPattern != None) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

std::string WholeText(Files& files, const std::string& fileName) {
    std::error_code error;
    const auto file = files.OpenForInput(fileName, error);
    if (!file)
        return {};
    std::string text;
    std::array<char, 8192> block{};
    while (const std::size_t read = file->Read(block, error))
        text.append(block.data(), read);
    return error ? std::string() : text;
}

}  // namespace quavix
