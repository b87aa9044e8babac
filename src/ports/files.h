// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quavix {

/// A file open for reading, from its first byte on. Closed when destroyed.
class FileReader {
  public:
    virtual ~FileReader() = default;

    /// Length in bytes at the time of opening.
    virtual std::uint64_t Size() const = 0;

    /// Reads up to `buffer.size()` bytes and returns how many; 0 only at the end of the file or with `error`
    /// set.
    virtual std::size_t Read(std::span<char> buffer, std::error_code& error) = 0;
};

/// A file being replaced. Nothing of it is visible under its name before Commit(); destroyed without
/// Commit(), it leaves what was there before untouched.
class FileWriter {
  public:
    virtual ~FileWriter() = default;
    virtual std::error_code Write(std::string_view bytes) = 0;

    /// Makes the new content durable and puts it in the old one's place in one step.
    virtual std::error_code Commit() = 0;
};

/// A file that stands for something one process has to itself. Given up, and its file deleted, when
/// destroyed; given up by the system when the process ends, however it does, which leaves the file behind.
class FileLock {
  public:
    virtual ~FileLock() = default;
};

/// The file system.
///
/// Thread: the user-interface thread. File names are as the file system takes them. Errors are the system's
/// codes (std::errc); a call that fails changes nothing. No call runs handlers.
class Files {
  public:
    virtual ~Files() = default;

    /// Whether a directory search for `pattern` finds an ordinary file: one that is no folder and not hidden.
    /// The name's last component may hold the wildcards "*" and "?".
    virtual bool FindsNormalFile(const std::string& pattern) = 0;

    /// The name from the root on of a file that need not exist; a name that can't be completed as it is.
    virtual std::string FullName(const std::string& name) = 0;

    /// Length of a file in bytes.
    virtual std::uint64_t Length(const std::string& name, std::error_code& error) = 0;

    /// Writes `bytes` at `offset` (at most the file's length), creating the file where it is missing, and
    /// closes it.
    virtual std::error_code WriteAt(const std::string& name, std::uint64_t offset,
                                    std::string_view bytes) = 0;

    /// Writes `bytes` behind whatever the file holds, creating it where it is missing, and closes it.
    virtual std::error_code Append(const std::string& name, std::string_view bytes) = 0;

    /// Opens an ordinary file for reading; null with `error` set when it is missing, a folder, or not
    /// readable.
    virtual std::unique_ptr<FileReader> OpenForInput(const std::string& name, std::error_code& error) = 0;

    /// Opens a file for replacing; null with `error` set when it can't be written (a folder, a device, no
    /// permission on it or on its folder).
    virtual std::unique_ptr<FileWriter> OpenForOutput(const std::string& name, std::error_code& error) = 0;

    /// The files that FindsNormalFile(pattern) would find, by their full names in ascending order; none where
    /// the folder is missing or can't be listed.
    virtual std::vector<std::string> NormalFiles(const std::string& pattern) = 0;

    /// Deletes an ordinary file.
    virtual std::error_code Delete(const std::string& name) = 0;

    /// Creates a folder, and those above it, for the user alone; one that is there already is left as it is.
    virtual std::error_code CreateFolder(const std::string& name) = 0;

    /// Takes a lock without waiting, creating its file where that is missing; null with `error` set, which is
    /// errc::resource_unavailable_try_again when somebody holds it, this process included.
    virtual std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) = 0;
};

}  // namespace quavix
