// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ports/batch_files.h"
#include "ports/files.h"
#include "ports/processes.h"

namespace quavix {

// Ports of which the program needs no more than their interface. Each system implements them.

/// The file system of the machine.
std::unique_ptr<Files> MakeFiles();

/// The processes of the machine.
std::unique_ptr<Processes> MakeProcesses();

/// Batch files that the system's own interpreter runs; what registers a control is this program itself.
std::unique_ptr<BatchFiles> MakeBatchFiles();

}  // namespace quavix
