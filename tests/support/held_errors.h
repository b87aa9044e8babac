// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <unistd.h>

#include <gtest/gtest.h>

namespace quavix::test {

/// A buffer for standard error, for example for the messages of libraries about a server that a test kills.
/// The destructor writes the buffer out if the test has failed.
class HeldErrors {
  public:
    HeldErrors() : held_(std::tmpfile()), errors_(::dup(STDERR_FILENO)) {
        if (held_ != nullptr)
            ::dup2(::fileno(held_), STDERR_FILENO);
    }
    ~HeldErrors() {
        ::dup2(errors_, STDERR_FILENO);
        ::close(errors_);
        if (held_ == nullptr)
            return;
        std::rewind(held_);
        for (int byte = 0; testing::Test::HasFailure() && (byte = std::fgetc(held_)) != EOF;)
            std::fputc(byte, stderr);
        std::fclose(held_);
    }
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;

  private:
    std::FILE* held_;
    int errors_;
};

}  // namespace quavix::test
