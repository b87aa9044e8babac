// SPDX-License-Identifier: MIT
#include "platform/posix/lock_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quavix {
namespace {

/// Whether the open file is still the one of that name: its last holder may have deleted it in between.
bool StandsUnderItsName(const std::string& name, int file) {
    struct stat held {};
    struct stat named {};
    return ::fstat(file, &held) == 0 && ::lstat(name.c_str(), &named) == 0 && held.st_dev == named.st_dev &&
           held.st_ino == named.st_ino;
}

}  // namespace

std::unique_ptr<LockFile> LockFile::Take(const std::string& name, std::error_code& error) {
    error.clear();
    if (name.find('\0') != std::string::npos) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
        return nullptr;
    }
    for (;;) {
        FileDescriptor file =
            FileDescriptor::Open(AT_FDCWD, name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW, S_IRUSR | S_IWUSR);
        if (!file || ::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
            error = LastError();
            return nullptr;
        }
        if (StandsUnderItsName(name, file.Get()))
            return std::unique_ptr<LockFile>(new LockFile(name, std::move(file)));
    }
}

LockFile::~LockFile() {
    // While it is held: nobody else can have taken a file of this name.
    ::unlink(name_.c_str());
}

}  // namespace quavix
