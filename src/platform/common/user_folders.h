// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// The folder for what the program installs on first use: the environment's `windir`, or Quavix's own folder
/// in the user's data folder.
std::string WinFolderFromEnvironment();

/// The folder for what the program keeps from one start to the next: Quavix's own folder in the user's state
/// folder. It need not exist.
std::string StateFolderFromEnvironment();

/// The folder of the running executable.
std::string FolderOfProgram();

}  // namespace quavix
