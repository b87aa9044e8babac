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

/// A file open for reading, from its first byte on. The destructor closes it.
class FileReader {
  public:
    virtual ~FileReader() = default;

    /// Returns the length in bytes at the time of opening.
    virtual std::uint64_t Size() const = 0;

    /// Reads up to `buffer.size()` bytes and returns their number: 0 only at the end of the file or with
    /// `error` set.
    virtual std::size_t Read(std::span<char> buffer, std::error_code& error) = 0;
};

/// A file being replaced. The new content becomes visible with Commit(); without it, the destructor leaves
/// the old file untouched.
class FileWriter {
  public:
    virtual ~FileWriter() = default;
    virtual std::error_code Write(std::string_view bytes) = 0;

    /// Makes the new content durable and replaces the old file in one step.
    virtual std::error_code Commit() = 0;
};

/// A file that represents an exclusive right of one process. The destructor gives up the right and deletes
/// the file. If the process ends otherwise, the system gives up the right, and the file remains.
class FileLock {
  public:
    virtual ~FileLock() = default;
};

/// The file system.
///
/// Thread: the user-interface thread. File names are the file system's. Errors are the system's codes
/// (std::errc); a failed call changes nothing. No call runs handlers.
class Files {
  public:
    virtual ~Files() = default;

    /// Returns true if a directory search for `pattern` finds an ordinary file: neither a folder nor hidden.
    /// The last component of the name may hold the wildcards "*" and "?".
    virtual bool FindsNormalFile(const std::string& pattern) = 0;

    /// Returns the absolute form of a name, which need not exist; if there is none, the name itself.
    virtual std::string FullName(const std::string& name) = 0;

    /// Returns the length of a file in bytes.
    virtual std::uint64_t Length(const std::string& name, std::error_code& error) = 0;

    /// Writes `bytes` at `offset` (at most the file's length), and closes the file. Creates a missing file.
    virtual std::error_code WriteAt(const std::string& name, std::uint64_t offset,
                                    std::string_view bytes) = 0;

    /// Appends `bytes` to a file, and closes it. Creates a missing file.
    virtual std::error_code Append(const std::string& name, std::string_view bytes) = 0;

    /// Opens an ordinary file for reading. Returns null with `error` set if it is missing, a folder, or not
    /// readable.
    virtual std::unique_ptr<FileReader> OpenForInput(const std::string& name, std::error_code& error) = 0;

    /// Opens a file for replacing. Returns null with `error` set if it can't be written (a folder, a device,
    /// or no permission for it or its folder).
    virtual std::unique_ptr<FileWriter> OpenForOutput(const std::string& name, std::error_code& error) = 0;

    /// Returns the full names of all files that match as in FindsNormalFile(pattern), in ascending order;
    /// none if the folder is missing or unreadable.
    virtual std::vector<std::string> NormalFiles(const std::string& pattern) = 0;

    /// Deletes an ordinary file.
    virtual std::error_code Delete(const std::string& name) = 0;

    /// Creates a folder and its missing parents, for the user alone. An existing folder stays unchanged.
    virtual std::error_code CreateFolder(const std::string& name) = 0;

    /// Takes a lock without waiting. Creates a missing file. Returns null with `error` set if that fails; the
    /// error is errc::resource_unavailable_try_again if any process, this one included, holds the lock.
    virtual std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) = 0;
};

}  // namespace quavix
