// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "platform/posix/file_descriptor.h"
#include "ports/files.h"

namespace quavix {

/// A lock of the kernel on an open file: it goes with the process, so that no process number has to be asked
/// after, and none that is in use again can deceive.
class LockFile : public FileLock {
  public:
    /// Null with `error` set when the file can't be created or somebody holds the lock.
    static std::unique_ptr<LockFile> Take(const std::string& name, std::error_code& error);

    ~LockFile() override;
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

  private:
    LockFile(std::string name, FileDescriptor file) : name_(std::move(name)), file_(std::move(file)) {}

    std::string name_;
    FileDescriptor file_;
};

}  // namespace quavix
