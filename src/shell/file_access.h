// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "ports/files.h"
#include "shell/debug_log.h"

namespace quavix {

/// Returns true if an ordinary, unhidden file of that name exists; the last component may hold wildcards.
/// Logs the result. An empty name and a folder's name (with a separator at the end) return false without a
/// log line.
bool FileExists(const std::string& fileName, Files& files, DebugLog& log);

/// Returns the name of a file in a folder. The program's file names use '/' on every system.
std::string FileInFolder(const std::string& folder, const std::string& name);

/// Returns true if a file name matches a pattern: "*" stands for any characters, "?" for any single one.
bool MatchesWildcards(std::string_view name, std::string_view pattern);

/// Returns all bytes of a file; an empty text if it can't be read to its end.
std::string WholeText(Files& files, const std::string& fileName);

}  // namespace quavix
