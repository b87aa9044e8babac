// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

namespace quavix {

/// The file system of the machine. Ordinary files only: folders, devices, pipes and sockets are refused, and
/// none of them makes a call wait.
///
/// A file that is replaced keeps its permissions, and a symbolic link to it stays a link. Until the new
/// content is committed it stands in a hidden file of the same folder; a process that is killed may leave
/// that one behind, never half a song.
class PosixFiles : public Files {
  public:
    /// Hidden files are those whose name begins with a dot.
    bool FindsNormalFile(const std::string& pattern) override;
    std::string FullName(const std::string& name) override;
    std::uint64_t Length(const std::string& name, std::error_code& error) override;
    std::error_code WriteAt(const std::string& name, std::uint64_t offset, std::string_view bytes) override;
    std::error_code Append(const std::string& name, std::string_view bytes) override;
    std::unique_ptr<FileReader> OpenForInput(const std::string& name, std::error_code& error) override;
    std::unique_ptr<FileWriter> OpenForOutput(const std::string& name, std::error_code& error) override;
    std::vector<std::string> NormalFiles(const std::string& pattern) override;
    std::error_code Delete(const std::string& name) override;
    std::error_code CreateFolder(const std::string& name) override;
    std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) override;
};

}  // namespace quavix
