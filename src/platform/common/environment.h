// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

// The process's environment. Each system implements these functions.

/// Returns a variable of the environment; `otherwise` if it is unset or empty.
std::string FromEnvironment(const char* name, const char* otherwise = "");

/// Sets a variable unless it is set. Not safe while other threads run.
void SetInEnvironment(const char* name, const char* value);

/// Returns the folder for files installed on first use: the environment's `windir`, or Quavix's own folder in
/// the user's data folder.
std::string WinFolderFromEnvironment();

/// Returns the folder for data kept between starts: Quavix's own folder in the user's state folder. It need
/// not exist.
std::string StateFolderFromEnvironment();

/// Returns the file of the running executable.
std::string FileOfProgram();

/// Returns the folder of the running executable.
std::string FolderOfProgram();

/// Returns true if standard error is a terminal.
bool StandardErrorIsTerminal();

}  // namespace quavix
