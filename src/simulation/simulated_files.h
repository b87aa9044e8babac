// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ports/files.h"

namespace quavix {

/// A file system in memory with failures on demand.
class SimulatedFiles : public Files {
  public:
    bool FindsNormalFile(const std::string& pattern) override;
    /// Puts CurrentFolder before a relative name.
    std::string FullName(const std::string& name) override {
        return name.empty() || name.front() == '/' ? name : CurrentFolder + name;
    }
    std::uint64_t Length(const std::string& name, std::error_code& error) override;
    std::error_code WriteAt(const std::string& name, std::uint64_t offset, std::string_view bytes) override;
    std::error_code Append(const std::string& name, std::string_view bytes) override;
    std::unique_ptr<FileReader> OpenForInput(const std::string& name, std::error_code& error) override;
    std::unique_ptr<FileWriter> OpenForOutput(const std::string& name, std::error_code& error) override;
    std::vector<std::string> NormalFiles(const std::string& pattern) override;
    std::error_code Delete(const std::string& name) override;
    /// Folders exist only as parts of file names, so there is no folder to create.
    std::error_code CreateFolder(const std::string& name) override { return WritingError(name); }
    std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) override;

    /// Prefix that FullName() puts before a relative name.
    std::string CurrentFolder;

    /// Creates a file, or replaces its content.
    void Put(const std::string& name, std::string content) { files_[name].Content = std::move(content); }
    bool Has(const std::string& name) const { return files_.contains(name); }
    /// Returns the content of a file, or an empty text if it does not exist.
    std::string Content(const std::string& name) const;

    void SetHidden(const std::string& name) { files_.at(name).Hidden = true; }
    /// Makes opening the file for reading, or for any writing, fail with this error from now on.
    void FailReading(const std::string& name, std::errc error) { failReading_[name] = error; }
    void FailWriting(const std::string& name, std::errc error) { failWriting_[name] = error; }
    /// Makes only the next read, or opening for reading, fail.
    void FailReadingOnce(const std::string& name, std::errc error) { failReadingOnce_[name] = error; }
    /// Makes Commit() of a replaced file fail.
    void FailCommitting(const std::string& name, std::errc error) { failCommitting_[name] = error; }
    /// Sets the number of bytes that the disk still accepts.
    void SetSpaceLeft(std::uint64_t bytes) { spaceLeft_ = bytes; }
    /// Runs `action` before each read from an open file, with its name and the number of bytes read so far.
    void BeforeRead(std::function<void(const std::string&, std::uint64_t)> action) {
        beforeRead_ = std::move(action);
    }
    /// Limits one read to this many bytes.
    void SetReadSize(std::size_t bytes) { readSize_ = bytes; }

  private:
    friend class SimulatedFileReader;
    friend class SimulatedFileWriter;
    friend class SimulatedFileLock;

    struct File {
        std::string Content;
        bool Hidden = false;
    };

    static bool Matches(const std::pair<const std::string, File>& file, const std::string& pattern);
    std::error_code ReadingError(const std::string& name);
    std::error_code WritingError(const std::string& name) const;
    std::error_code TakeSpace(std::uint64_t bytes);

    std::map<std::string, File> files_;
    std::set<std::string> locked_;
    std::map<std::string, std::errc> failReading_;
    std::map<std::string, std::errc> failReadingOnce_;
    std::map<std::string, std::errc> failWriting_;
    std::map<std::string, std::errc> failCommitting_;
    std::uint64_t spaceLeft_ = UINT64_MAX;
    std::size_t readSize_ = SIZE_MAX;
    std::function<void(const std::string&, std::uint64_t)> beforeRead_;
};

}  // namespace quavix
