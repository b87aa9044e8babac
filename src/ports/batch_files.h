// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <system_error>

namespace quavix {

/// The system's batch files. Each line is a command followed by one file name.
///
/// Thread: the user-interface thread. No call raises an error or runs handlers.
class BatchFiles {
  public:
    virtual ~BatchFiles() = default;

    /// Returns the command that registers a control file and waits for it, including the separator before the
    /// file name. The command for deleting a file is "erase ".
    virtual std::string RegisterCommand() = 0;

    /// Returns a full file name in double quotes, as a batch file needs it.
    virtual std::string Quoted(const std::string& fileName) = 0;

    /// Starts a batch file, hidden, and returns at once. Each line runs, even if the one before failed. The
    /// file is read at the start and may be replaced or deleted afterwards.
    virtual std::error_code Start(const std::string& fileName) = 0;
};

}  // namespace quavix
