// SPDX-License-Identifier: MIT
#include "platform/posix/file_descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace quavix {

std::error_code LastError() {
    return {errno, std::generic_category()};
}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        Close();
        fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
}

FileDescriptor FileDescriptor::Open(int folder, const char* name, int flags, mode_t mode) {
    return FileDescriptor(Uninterrupted(
        [&] { return ::openat(folder, name, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode); }));
}

std::error_code FileDescriptor::WriteAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t written = Uninterrupted([&] { return ::write(fd_, bytes.data(), bytes.size()); });
        if (written < 0)
            return LastError();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code FileDescriptor::Sync() const {
    return Uninterrupted([this] { return ::fsync(fd_); }) == 0 ? std::error_code() : LastError();
}

std::error_code FileDescriptor::Close() {
    const int fd = std::exchange(fd_, -1);
    // An interrupted close has still closed the file.
    if (fd >= 0 && ::close(fd) != 0 && errno != EINTR)
        return LastError();
    return {};
}

std::error_code UnlessOrdinary(const struct stat& status) {
    if (S_ISREG(status.st_mode))
        return {};
    return std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory
                                                        : std::errc::operation_not_supported);
}

}  // namespace quavix
