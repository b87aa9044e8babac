// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

namespace quavix {

/// Owns one file descriptor and closes it; -1 is none. Moved from, it holds none.
class UniqueFd {
  public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : fd_(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        if (this != &other) {
            Close();
            fd_ = std::exchange(other.fd_, -1);
        }
        return *this;
    }
    ~UniqueFd() { Close(); }

    int Get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }

    void Close() {
        if (fd_ >= 0)
            ::close(std::exchange(fd_, -1));
    }

  private:
    int fd_ = -1;
};

}  // namespace quavix
