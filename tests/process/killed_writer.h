// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace quavix::test {

/// A child that writes files until it is killed, at the latest by the destructor. It writes a byte to its
/// standard output when the first file is complete.
class KilledWriter {
  public:
    /// Starts a program with one argument, and waits for its first file.
    KilledWriter(std::string program, std::string argument) {
        std::array<int, 2> out{};
        if (::pipe(out.data()) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_addclose(&actions, out[0]);
        std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
        if (::posix_spawn(&pid_, program.c_str(), &actions, nullptr, arguments.data(), environ) != 0)
            throw std::runtime_error("no child");
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(out[1]);
        char byte = 0;
        hasWritten_ = ::read(out[0], &byte, 1) == 1;
        ::close(out[0]);
    }
    ~KilledWriter() { Kill(); }
    KilledWriter(const KilledWriter&) = delete;
    KilledWriter& operator=(const KilledWriter&) = delete;

    /// True once the first file has been written.
    bool HasWritten() const { return hasWritten_; }

    /// Kills the child. True: it was still writing.
    bool Kill() {
        if (pid_ == 0)
            return false;
        ::kill(pid_, SIGKILL);
        int status = 0;
        ::waitpid(std::exchange(pid_, 0), &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

  private:
    pid_t pid_ = 0;
    bool hasWritten_ = false;
};

}  // namespace quavix::test
