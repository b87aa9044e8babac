// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace quavix::test {

/// A limit of the size in bytes that this process's files may have. While it lasts, larger writes fail.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    void (*handler_)(int);
    rlimit before_{};
};

}  // namespace quavix::test
