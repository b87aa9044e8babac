// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <system_error>

namespace quavix {

/// The system's batch files, of which each line is a command with one file name behind it.
///
/// Thread: the user-interface thread. Nothing is raised, and no call runs handlers.
class BatchFiles {
  public:
    virtual ~BatchFiles() = default;

    /// The command that registers a control file and waits until that is done, with what separates it from
    /// the file's name; the command for deleting a file is "erase ".
    virtual std::string RegisterCommand() = 0;

    /// A file's full name as it stands in a batch file: between double-quote characters.
    virtual std::string Quoted(const std::string& fileName) = 0;

    /// Starts a batch file, hidden, and returns at once. Each line is run, whatever became of the one before.
    /// The file may be replaced or deleted from then on: what is run is what it held at the start.
    virtual std::error_code Start(const std::string& fileName) = 0;
};

}  // namespace quavix
