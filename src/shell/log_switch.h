// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"

namespace quavix {

/// Turns the log on when the marker file "logenable" lies in the program's folder, and tells the user what
/// that means. Returns whether it is on now. The first thing at start-up.
bool EnableDebugLogIfWanted(const std::string& programFolder, Files& files, MessageBoxes& boxes,
                            DebugLog& log);

}  // namespace quavix
