// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <unistd.h>

#include "platform/common/system_ports.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/replaced_file.h"
#include "shell/file_access.h"

namespace quavix {
namespace {

bool HasNul(const std::string& name) {
    return name.find('\0') != std::string::npos;
}

bool IsNoFolder(const std::string& name) {
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

/// Returns true if a folder has this name. Keeps errno.
bool IsFolder(const std::string& name) {
    const int error = errno;
    struct stat status {};
    const bool isFolder = ::stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    errno = error;
    return isFolder;
}

/// Returns the files that match; at most `most`.
std::vector<std::string> Matching(const std::string& pattern, std::size_t most) {
    std::vector<std::string> names;
    if (HasNul(pattern))
        return names;
    const std::size_t nameStart = pattern.rfind('/') + 1;  // npos + 1 is 0
    const std::string folder = pattern.substr(0, nameStart);
    const std::string namePattern = pattern.substr(nameStart);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.empty() ? "." : folder.c_str()),
                                                      ::closedir);
    while (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name.starts_with('.') || !MatchesWildcards(name, namePattern) || !IsNoFolder(folder + name))
            continue;
        names.push_back(folder + name);
        if (names.size() == most)
            break;
    }
    return names;
}

class PosixFileReader : public FileReader {
  public:
    PosixFileReader(FileDescriptor file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

    std::uint64_t Size() const override { return size_; }

    std::size_t Read(std::span<char> buffer, std::error_code& error) override {
        const ssize_t count =
            Uninterrupted([&] { return ::read(file_.Get(), buffer.data(), buffer.size()); });
        error = count < 0 ? LastError() : std::error_code();
        return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }

  private:
    FileDescriptor file_;
    std::uint64_t size_;
};

/// Opens an ordinary file. Returns none with `error` set on failure.
FileDescriptor OpenOrdinary(const std::string& name, int flags, mode_t mode, struct stat& status,
                            std::error_code& error) {
    error.clear();
    if (HasNul(name)) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
        return FileDescriptor();
    }
    FileDescriptor file = FileDescriptor::Open(AT_FDCWD, name.c_str(), flags, mode);
    if (!file || ::fstat(file.Get(), &status) != 0)
        error = LastError();
    else
        error = UnlessOrdinary(status);
    return error ? FileDescriptor() : std::move(file);
}

std::error_code WriteAndClose(FileDescriptor file, std::string_view bytes) {
    const std::error_code error = file.WriteAll(bytes);
    const std::error_code closeError = file.Close();
    return error ? error : closeError;
}

/// Returns true if the open file still has this name: its last holder may have deleted it meanwhile.
bool StandsUnderItsName(const std::string& name, int file) {
    struct stat held {};
    struct stat named {};
    return ::fstat(file, &held) == 0 && ::lstat(name.c_str(), &named) == 0 && held.st_dev == named.st_dev &&
           held.st_ino == named.st_ino;
}

/// A kernel lock on an open file. It ends with the process, so that no process ids have to be checked, which
/// could be reused.
class LockFile : public FileLock {
  public:
    LockFile(std::string name, FileDescriptor file) : name_(std::move(name)), file_(std::move(file)) {}
    ~LockFile() override {
        // Deleted while the lock is held, so that no other process can hold a file of this name.
        ::unlink(name_.c_str());
    }
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

  private:
    std::string name_;
    FileDescriptor file_;
};

/// The machine's file system. Only ordinary files are accepted: folders, devices, pipes and sockets are
/// refused, and no call waits for them. Hidden files are those with a leading dot in their name.
///
/// A replaced file keeps its permissions, and a symbolic link to it stays a link. Until Commit(), the new
/// content is in a hidden file of the same folder; a killed process may leave that file behind, but never
/// half a song.
class PosixFiles : public Files {
  public:
    bool FindsNormalFile(const std::string& pattern) override {
        const std::string name = pattern.substr(pattern.rfind('/') + 1);  // npos + 1 is 0
        if (name.find_first_of("*?") != std::string::npos)
            return !Matching(pattern, 1).empty();
        return !name.empty() && !name.starts_with('.') && !HasNul(pattern) && IsNoFolder(pattern);
    }

    std::vector<std::string> NormalFiles(const std::string& pattern) override {
        std::vector<std::string> names = Matching(pattern, SIZE_MAX);
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string FullName(const std::string& name) override {
        std::error_code error;
        const std::filesystem::path full = std::filesystem::absolute(name, error);
        return error || name.empty() ? name : full.lexically_normal().string();
    }

    std::error_code Delete(const std::string& name) override {
        std::error_code error;
        Length(name, error);
        if (!error && ::unlink(name.c_str()) != 0)
            error = LastError();
        return error;
    }

    std::error_code CreateFolder(const std::string& name) override {
        if (HasNul(name))
            return std::make_error_code(std::errc::no_such_file_or_directory);
        for (std::size_t end = 0; end != std::string::npos;) {
            end = name.find('/', end + 1);
            const std::string folder = name.substr(0, end);
            // mkdir() may refuse a folder that exists for another reason than that.
            if (::mkdir(folder.c_str(), S_IRWXU) == 0 || IsFolder(folder))
                continue;
            return errno == EEXIST ? std::make_error_code(std::errc::not_a_directory) : LastError();
        }
        return {};
    }

    std::unique_ptr<FileLock> TryLock(const std::string& name, std::error_code& error) override {
        error.clear();
        if (HasNul(name)) {
            error = std::make_error_code(std::errc::no_such_file_or_directory);
            return nullptr;
        }
        for (;;) {
            FileDescriptor file = FileDescriptor::Open(AT_FDCWD, name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW,
                                                       S_IRUSR | S_IWUSR);
            if (!file || ::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
                error = LastError();
                return nullptr;
            }
            if (StandsUnderItsName(name, file.Get()))
                return std::make_unique<LockFile>(name, std::move(file));
        }
    }

    std::uint64_t Length(const std::string& name, std::error_code& error) override {
        struct stat status {};
        error.clear();
        if (HasNul(name))
            error = std::make_error_code(std::errc::no_such_file_or_directory);
        else if (::stat(name.c_str(), &status) != 0)
            error = LastError();
        else
            error = UnlessOrdinary(status);
        return error ? 0 : static_cast<std::uint64_t>(status.st_size);
    }

    std::error_code WriteAt(const std::string& name, std::uint64_t offset, std::string_view bytes) override {
        struct stat status {};
        std::error_code error;
        FileDescriptor file = OpenOrdinary(name, O_WRONLY | O_CREAT, ReadWriteForAll, status, error);
        if (error)
            return error;
        if (::lseek(file.Get(), static_cast<off_t>(offset), SEEK_SET) < 0)
            return LastError();
        return WriteAndClose(std::move(file), bytes);
    }

    std::error_code Append(const std::string& name, std::string_view bytes) override {
        struct stat status {};
        std::error_code error;
        FileDescriptor file =
            OpenOrdinary(name, O_WRONLY | O_CREAT | O_APPEND, ReadWriteForAll, status, error);
        return error ? error : WriteAndClose(std::move(file), bytes);
    }

    std::unique_ptr<FileReader> OpenForInput(const std::string& name, std::error_code& error) override {
        struct stat status {};
        FileDescriptor file = OpenOrdinary(name, O_RDONLY, 0, status, error);
        if (error)
            return nullptr;
        return std::make_unique<PosixFileReader>(std::move(file), static_cast<std::uint64_t>(status.st_size));
    }

    std::unique_ptr<FileWriter> OpenForOutput(const std::string& name, std::error_code& error) override {
        return OpenReplacedFile(name, error);
    }
};

}  // namespace

std::unique_ptr<Files> MakeFiles() {
    return std::make_unique<PosixFiles>();
}

}  // namespace quavix
