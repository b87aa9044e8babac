// SPDX-License-Identifier: MIT
#include "simulation/simulated_files.h"

#include <algorithm>
#include <utility>

#include "shell/file_access.h"

namespace quavix {

class SimulatedFileReader : public FileReader {
  public:
    SimulatedFileReader(SimulatedFiles& files, std::string name)
        : files_(files), name_(std::move(name)), size_(files_.files_.at(name_).Content.size()) {}

    std::uint64_t Size() const override { return size_; }

    std::size_t Read(std::span<char> buffer, std::error_code& error) override {
        if (files_.beforeRead_)
            files_.beforeRead_(name_, position_);
        error = files_.ReadingError(name_);
        if (error)
            return 0;
        const auto found = files_.files_.find(name_);
        const std::string_view content =
            found == files_.files_.end() ? std::string_view() : std::string_view(found->second.Content);
        if (position_ >= content.size())
            return 0;
        const std::size_t count = std::min({buffer.size(), files_.readSize_, content.size() - position_});
        content.copy(buffer.data(), count, position_);
        position_ += count;
        return count;
    }

  private:
    SimulatedFiles& files_;
    std::string name_;
    std::uint64_t size_;
    std::size_t position_ = 0;
};

class SimulatedFileWriter : public FileWriter {
  public:
    SimulatedFileWriter(SimulatedFiles& files, std::string name) : files_(files), name_(std::move(name)) {}

    std::error_code Write(std::string_view bytes) override {
        if (const auto error = files_.TakeSpace(bytes.size()))
            return error;
        content_ += bytes;
        return {};
    }

    std::error_code Commit() override {
        const auto failing = files_.failCommitting_.find(name_);
        if (failing != files_.failCommitting_.end())
            return std::make_error_code(failing->second);
        files_.Put(name_, content_);
        return {};
    }

  private:
    SimulatedFiles& files_;
    std::string name_;
    std::string content_;
};

class SimulatedFileLock : public FileLock {
  public:
    SimulatedFileLock(SimulatedFiles& files, std::string name) : files_(files), name_(std::move(name)) {
        files_.Put(name_, "");
        files_.locked_.insert(name_);
    }
    ~SimulatedFileLock() override {
        files_.locked_.erase(name_);
        files_.files_.erase(name_);
    }
    SimulatedFileLock(const SimulatedFileLock&) = delete;
    SimulatedFileLock& operator=(const SimulatedFileLock&) = delete;

  private:
    SimulatedFiles& files_;
    std::string name_;
};

std::string SimulatedFiles::Content(const std::string& name) const {
    const auto found = files_.find(name);
    return found == files_.end() ? std::string() : found->second.Content;
}

bool SimulatedFiles::Matches(const std::pair<const std::string, File>& file, const std::string& pattern) {
    const auto folderLength = pattern.rfind('/') + 1;  // npos + 1 is 0
    const std::string_view namePattern = std::string_view(pattern).substr(folderLength);
    const std::string& name = file.first;
    return !file.second.Hidden && name.rfind('/') + 1 == folderLength &&
           name.compare(0, folderLength, pattern, 0, folderLength) == 0 &&
           MatchesWildcards(std::string_view(name).substr(folderLength), namePattern);
}

bool SimulatedFiles::FindsNormalFile(const std::string& pattern) {
    return std::any_of(files_.begin(), files_.end(),
                       [&](const auto& file) { return Matches(file, pattern); });
}

std::vector<std::string> SimulatedFiles::NormalFiles(const std::string& pattern) {
    std::vector<std::string> names;
    for (const auto& file : files_) {
        if (Matches(file, pattern))
            names.push_back(file.first);
    }
    return names;
}

std::error_code SimulatedFiles::Delete(const std::string& name) {
    if (const auto error = WritingError(name))
        return error;
    return files_.erase(name) != 0 ? std::error_code()
                                   : std::make_error_code(std::errc::no_such_file_or_directory);
}

std::unique_ptr<FileLock> SimulatedFiles::TryLock(const std::string& name, std::error_code& error) {
    error = WritingError(name);
    if (!error && locked_.contains(name))
        error = std::make_error_code(std::errc::resource_unavailable_try_again);
    return error ? nullptr : std::make_unique<SimulatedFileLock>(*this, name);
}

std::uint64_t SimulatedFiles::Length(const std::string& name, std::error_code& error) {
    error = Has(name) ? std::error_code() : std::make_error_code(std::errc::no_such_file_or_directory);
    return Content(name).size();
}

std::error_code SimulatedFiles::ReadingError(const std::string& name) {
    if (const auto once = failReadingOnce_.extract(name))
        return std::make_error_code(once.mapped());
    const auto failing = failReading_.find(name);
    return failing == failReading_.end() ? std::error_code() : std::make_error_code(failing->second);
}

std::error_code SimulatedFiles::WritingError(const std::string& name) const {
    const auto failing = failWriting_.find(name);
    return failing == failWriting_.end() ? std::error_code() : std::make_error_code(failing->second);
}

std::error_code SimulatedFiles::TakeSpace(std::uint64_t bytes) {
    if (bytes > spaceLeft_)
        return std::make_error_code(std::errc::no_space_on_device);
    spaceLeft_ -= bytes;
    return {};
}

std::error_code SimulatedFiles::WriteAt(const std::string& name, std::uint64_t offset,
                                        std::string_view bytes) {
    if (const auto error = WritingError(name))
        return error;
    if (const auto error = TakeSpace(bytes.size()))
        return error;
    std::string& content = files_[name].Content;
    const auto start = static_cast<std::size_t>(std::min<std::uint64_t>(offset, content.size()));
    content.replace(start, bytes.size(), bytes);
    return {};
}

std::error_code SimulatedFiles::Append(const std::string& name, std::string_view bytes) {
    const auto found = files_.find(name);
    return WriteAt(name, found == files_.end() ? 0 : found->second.Content.size(), bytes);
}

std::unique_ptr<FileReader> SimulatedFiles::OpenForInput(const std::string& name, std::error_code& error) {
    error = ReadingError(name);
    if (!error && !Has(name))
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    return error ? nullptr : std::make_unique<SimulatedFileReader>(*this, name);
}

std::unique_ptr<FileWriter> SimulatedFiles::OpenForOutput(const std::string& name, std::error_code& error) {
    error = WritingError(name);
    return error ? nullptr : std::make_unique<SimulatedFileWriter>(*this, name);
}

}  // namespace quavix
