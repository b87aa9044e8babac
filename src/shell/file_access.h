// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "ports/files.h"
#include "shell/debug_log.h"

namespace quavix {

/// Returns true if an ordinary, unhidden file of that name exists; the last component may hold wildcards.
/// Logs the finding. An empty name and a folder's name (one that ends in a separator) give false and log
/// nothing.
bool FileExists(const std::string& fileName, Files& files, DebugLog& log);

/// Returns the name of a file in a folder. The program's names have '/' between their parts on every system.
std::string FileInFolder(const std::string& folder, const std::string& name);

/// Returns true if a file name matches a pattern in which "*" stands for any characters and "?" for any one.
bool MatchesWildcards(std::string_view name, std::string_view pattern);

/// Returns all bytes of a file; an empty text where it can't be read to its end.
std::string WholeText(Files& files, const std::string& fileName);

}  // namespace quavix
