// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

// The process's surroundings. Each system implements these functions.

/// A variable of the environment; `otherwise` if it is unset or empty.
std::string FromEnvironment(const char* name, const char* otherwise = "");

/// Sets a variable unless it is set. Not safe beside other threads.
void SetInEnvironment(const char* name, const char* value);

/// The folder for what the program installs on first use: the environment's `windir`, or Quavix's own folder
/// in the user's data folder.
std::string WinFolderFromEnvironment();

/// The folder for what the program keeps from one start to the next: Quavix's own folder in the user's state
/// folder. It need not exist.
std::string StateFolderFromEnvironment();

/// The file of the running executable.
std::string FileOfProgram();

/// The folder of the running executable.
std::string FolderOfProgram();

/// True if somebody can see what goes to standard error.
bool StandardErrorIsTerminal();

}  // namespace quavix
