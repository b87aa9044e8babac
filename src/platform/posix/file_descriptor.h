// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace quavix {

/// The permissions of a new file, reduced by the umask.
inline constexpr mode_t ReadWriteForAll = 0666;

/// Returns the error of the last system call.
std::error_code LastError();

/// Repeats a system call as long as a signal interrupts it, and returns its result.
template <typename Call>
auto Uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

/// Owns one file descriptor and closes it; -1 is none. After a move it holds none. Interrupted calls are
/// repeated.
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    ~FileDescriptor() { Close(); }

    /// Calls openat(). Children don't inherit the result; never waits for a pipe or takes a terminal.
    static FileDescriptor Open(int folder, const char* name, int flags, mode_t mode = 0);

    int Get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }

    /// Writes all bytes at the file's position.
    std::error_code WriteAll(std::string_view bytes) const;
    /// Makes the content durable.
    std::error_code Sync() const;
    std::error_code Close();

  private:
    int fd_ = -1;
};

/// Returns the error that a file gives which is not an ordinary one; none for an ordinary file.
std::error_code UnlessOrdinary(const struct stat& status);

}  // namespace quavix
