// SPDX-License-Identifier: MIT
#include "platform/posix/forked_guard.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/kernel_calls.h"

namespace quavix {
namespace {

constexpr int GuardsDevice = 0;
constexpr int GuardsChannel = 1;

// Every other descriptor would stay open for others too: a pipe's end, a terminal, a server's socket.
bool KeepOnly(int device, int channel) {
    // Moves both to high numbers first: otherwise one could be overwritten by the other's new number.
    const int highDevice = fcntl(device, F_DUPFD_CLOEXEC, 10);
    const int highChannel = fcntl(channel, F_DUPFD_CLOEXEC, 10);
    return dup2(highDevice, GuardsDevice) == GuardsDevice &&
           dup2(highChannel, GuardsChannel) == GuardsChannel && CloseFrom(GuardsChannel + 1);
}

// Signals that end or stop the program must not end or stop the guard before it has done its work.
void IgnoreSignals() {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    for (int signal = 1; signal < NSIG; ++signal)
        sigaction(signal, &ignore, nullptr);
}

/// Runs the guard, right after fork() with every signal blocked.
[[noreturn]] void BeGuard(const char* name, int device, int channel, const ForkedGuard::Duty& duty) {
    setsid();
    IgnoreSignals();
    NameProcess(name);
    if (KeepOnly(device, channel) && chdir("/") == 0 && send(GuardsChannel, "r", 1, MSG_NOSIGNAL) == 1)
        duty(GuardsDevice, GuardsChannel);
    _exit(0);
}

}  // namespace

bool ForkedGuard::Start(const char* name, int device, const Duty& duty) {
    End();
    std::array<int, 2> ends{-1, -1};
    // Packets, so that messages stay whole; and a socket, so that a missing guard raises no signal.
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        problem_ = std::string("no channel to it: ") + std::strerror(errno);
        return false;
    }
    channel_ = FileDescriptor(ends[0]);
    FileDescriptor guardsEnd(ends[1]);

    // Until the guard ignores signals, it must not run the program's signal handlers.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    process_ = fork();
    if (process_ == 0)
        BeGuard(name, device, guardsEnd.Get(), duty);
    const int forkError = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);

    guardsEnd.Close();
    if (process_ < 0) {
        problem_ = std::string("no process for it: ") + std::strerror(forkError);
        channel_.Close();
        return false;
    }
    if (!Ready()) {
        problem_ = "it did not get ready";
        End();
        return false;
    }
    problem_.clear();
    return true;
}

bool ForkedGuard::Ready() const {
    constexpr int PatienceMs = 2000;
    pollfd waiting{channel_.Get(), POLLIN, 0};
    const int ready = Uninterrupted([&] { return poll(&waiting, 1, PatienceMs); });
    char byte = 0;
    return ready > 0 && recv(channel_.Get(), &byte, 1, MSG_DONTWAIT) == 1;
}

bool ForkedGuard::Send(std::int64_t message) {
    if (!channel_)
        return false;
    const auto sent = Uninterrupted(
        [&] { return send(channel_.Get(), &message, sizeof message, MSG_NOSIGNAL | MSG_DONTWAIT); });
    if (sent == static_cast<ssize_t>(sizeof message))
        return true;
    problem_ = std::strerror(errno);
    End();
    return false;
}

void ForkedGuard::End() {
    if (process_ > 0) {
        // First the kill, because the end of the channel would start the guard's work. A kill also ends a
        // stopped guard.
        kill(process_, SIGKILL);
        Uninterrupted([this] { return waitpid(process_, nullptr, 0); });
        process_ = -1;
    }
    channel_.Close();
}

}  // namespace quavix
