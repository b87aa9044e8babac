// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

namespace quavix {

/// The machine's file system. Only ordinary files are accepted: folders, devices, pipes and sockets are
/// refused, and no call waits for them.
///
/// A replaced file keeps its permissions, and a symbolic link to it stays a link. Until Commit(), the new
/// content is in a hidden file of the same folder; a killed process may leave that file behind, but never
/// half a song.
class PosixFiles : public Files {
  public:
    /// Hidden files are those with a leading dot in their name.
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
