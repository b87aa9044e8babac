// SPDX-License-Identifier: MIT
#include "platform/posix/replaced_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <unistd.h>

#include "platform/posix/file_descriptor.h"
#include "platform/posix/kernel_calls.h"

namespace quavix {
namespace {

/// Follows symbolic links, also chains of them; the file itself need not exist.
std::filesystem::path FollowLinks(std::filesystem::path path, std::error_code& error) {
    constexpr int MostLinks = 40;
    for (int links = 0; links < MostLinks; ++links) {
        std::error_code noLink;
        const std::filesystem::path target = std::filesystem::read_symlink(path, noLink);
        if (noLink)
            return path;
        path = path.parent_path() / target;
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

std::string UnpredictableName() {
    std::random_device random;
    std::array<char, 40> name{};
    std::snprintf(name.data(), name.size(), ".quavix-%08x%08x.tmp", random(), random());
    return name.data();
}

class ReplacedFile : public FileWriter {
  public:
    /// `name` is that of the file itself, links resolved.
    ReplacedFile(FileDescriptor folder, std::string name)
        : folder_(std::move(folder)), name_(std::move(name)) {}
    ~ReplacedFile() override {
        if (!temporaryName_.empty())
            ::unlinkat(folder_.Get(), temporaryName_.c_str(), 0);
    }
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    /// Checks that the file can be written, and creates the new one.
    std::error_code Prepare();

    std::error_code Write(std::string_view bytes) override { return file_.WriteAll(bytes); }
    std::error_code Commit() override;

  private:
    std::error_code CreateBeside();
    template <typename Create>
    std::error_code TakeTemporaryName(Create create);

    FileDescriptor folder_;  // all names are relative to it, so that a renamed folder does no harm
    std::string name_;
    std::string temporaryName_;  // empty while it has none
    FileDescriptor file_;
};

std::error_code ReplacedFile::Prepare() {
    struct stat old {};
    const bool exists = ::fstatat(folder_.Get(), name_.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0;
    if (!exists)
        return errno == ENOENT ? CreateBeside() : LastError();
    if (const auto error = UnlessOrdinary(old))
        return error;
    // Only opening shows for sure whether the file is writable: permissions, read-only disks, attributes.
    if (!FileDescriptor::Open(folder_.Get(), name_.c_str(), O_WRONLY | O_NOFOLLOW))
        return LastError();
    if (const auto error = CreateBeside())
        return error;
    // If the owner can't be kept (somebody else's file in a shared folder), the file becomes the user's own.
    [[maybe_unused]] const int owned = ::fchown(file_.Get(), old.st_uid, old.st_gid);
    constexpr mode_t Permissions = 0777;
    return ::fchmod(file_.Get(), old.st_mode & Permissions) == 0 ? std::error_code() : LastError();
}

std::error_code ReplacedFile::CreateBeside() {
    file_ = CreateNameless(folder_);
    if (file_)
        return {};
    return TakeTemporaryName([this](const char* name) {
        file_ = FileDescriptor::Open(folder_.Get(), name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                                     ReadWriteForAll);
        return static_cast<bool>(file_);
    });
}

template <typename Create>
std::error_code ReplacedFile::TakeTemporaryName(Create create) {
    constexpr int Attempts = 100;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        std::string name = UnpredictableName();
        if (create(name.c_str())) {
            temporaryName_ = std::move(name);
            return {};
        }
        if (errno != EEXIST)
            break;
    }
    return LastError();
}

std::error_code ReplacedFile::Commit() {
    if (const auto error = file_.Sync())
        return error;
    if (temporaryName_.empty()) {
        // A nameless file can't be linked over an existing one.
        const auto give = [this](const char* name) { return GiveName(file_, folder_, name); };
        if (const auto error = TakeTemporaryName(give))
            return error;
    }
    if (const auto error = file_.Close())
        return error;
    if (::renameat(folder_.Get(), temporaryName_.c_str(), folder_.Get(), name_.c_str()) != 0)
        return LastError();
    temporaryName_.clear();
    const std::error_code error = folder_.Sync();
    // Some file systems can't sync a folder, and an unlisted folder can't be synced either.
    const bool cannotSync = error == std::errc::invalid_argument || error == std::errc::bad_file_descriptor;
    return cannotSync ? std::error_code() : error;
}

}  // namespace

std::unique_ptr<FileWriter> OpenReplacedFile(const std::string& name, std::error_code& error) {
    error.clear();
    if (name.empty() || name.find('\0') != std::string::npos) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
        return nullptr;
    }
    const std::filesystem::path path = FollowLinks(name, error);
    if (error)
        return nullptr;
    const std::string folder = path.parent_path().empty() ? "." : path.parent_path().string();
    FileDescriptor opened = OpenFolder(folder.c_str());
    if (!opened) {
        error = LastError();
        return nullptr;
    }
    if (!path.has_filename() || path.filename() == "." || path.filename() == "..") {
        error = std::make_error_code(std::errc::is_a_directory);
        return nullptr;
    }
    auto file = std::make_unique<ReplacedFile>(std::move(opened), path.filename().string());
    error = file->Prepare();
    return error ? nullptr : std::move(file);
}

}  // namespace quavix
