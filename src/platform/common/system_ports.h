// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ports/batch_files.h"
#include "ports/files.h"
#include "ports/processes.h"

namespace quavix {

// Makers of ports that are used through their interface only, and the end of the process. Each system
// implements them.

/// Returns the machine's file system.
std::unique_ptr<Files> MakeFiles();

/// Returns the machine's processes.
std::unique_ptr<Processes> MakeProcesses();

/// Returns batch files run by the system's interpreter. Controls are registered by this program itself.
std::unique_ptr<BatchFiles> MakeBatchFiles();

/// Ends the process with status 0, without destructors or exit handlers, because a tone or playback may be in
/// progress on the stack.
[[noreturn]] void EndProcess();

}  // namespace quavix
