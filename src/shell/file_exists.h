// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/files.h"
#include "shell/debug_log.h"

namespace quavix {

/// Whether an ordinary, unhidden file of that name exists; the last component may hold wildcards. Logs the
/// finding. An empty name and a folder's name (one that ends in a separator) give false and log nothing.
bool FileExists(const std::string& fileName, Files& files, DebugLog& log);

/// The name of a file in a folder.
std::string FileInFolder(const std::string& folder, const std::string& name);

}  // namespace quavix
