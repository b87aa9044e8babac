// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ports/files.h"

namespace quavix {

/// A file system in memory, whose files can be made to fail.
class SimulatedFiles : public Files {
  public:
    bool FindsNormalFile(const std::string& pattern) override;
    /// The current folder is the root, and stands for nothing: names are told apart as they are.
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
    /// Folders are not told apart from what their files' names say: nothing to do.
    std::error_code CreateFolder(const std::string& name) override { return WritingError(name); }
    std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) override;

    /// What FullName() puts before a name that doesn't start at the root.
    std::string CurrentFolder;

    /// Puts a file there, or replaces its content.
    void Put(const std::string& name, std::string content) { files_[name].Content = std::move(content); }
    bool Has(const std::string& name) const { return files_.contains(name); }
    /// Content of a file, empty where it doesn't exist.
    std::string Content(const std::string& name) const;

    void SetHidden(const std::string& name) { files_.at(name).Hidden = true; }
    /// Opening the file for reading, or for any writing, fails with this error from now on.
    void FailReading(const std::string& name, std::errc error) { failReading_[name] = error; }
    void FailWriting(const std::string& name, std::errc error) { failWriting_[name] = error; }
    /// Only the next read, or opening for reading, fails.
    void FailReadingOnce(const std::string& name, std::errc error) { failReadingOnce_[name] = error; }
    /// A replaced file's new content can't take its place.
    void FailCommitting(const std::string& name, std::errc error) { failCommitting_[name] = error; }
    /// The disk takes this many more bytes.
    void SetSpaceLeft(std::uint64_t bytes) { spaceLeft_ = bytes; }
    /// Runs before each read from an open file, with the file's name and how many bytes were read so far.
    void BeforeRead(std::function<void(const std::string&, std::uint64_t)> action) {
        beforeRead_ = std::move(action);
    }
    /// At most this many bytes come from one read.
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
