// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_guard.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <fmt/format.h>

#include "platform/linux/speaker/guard_process.h"

namespace quavix {

SpeakerGuard::SpeakerGuard(int device) : device_(device) {}

SpeakerGuard::~SpeakerGuard() {
    End();
}

bool SpeakerGuard::Start() {
    End();
    std::array<int, 2> ends{-1, -1};
    // Packets, so that a message is never torn, and a socket, so that a guard that is gone raises no signal.
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        problem_ = fmt::format("no channel to it: {}", std::strerror(errno));
        return false;
    }
    channel_ = UniqueFd(ends[0]);
    UniqueFd guardsEnd(ends[1]);

    // Until the guard ignores signals it must not run the program's handlers for them.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    process_ = fork();
    if (process_ == 0)
        RunGuardProcess(device_, guardsEnd.Get());
    const int forkError = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);

    guardsEnd.Close();
    if (process_ < 0) {
        problem_ = fmt::format("no process for it: {}", std::strerror(forkError));
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

bool SpeakerGuard::Ready() const {
    constexpr int PatienceMs = 2000;
    pollfd waiting{channel_.Get(), POLLIN, 0};
    int ready;
    do {
        ready = poll(&waiting, 1, PatienceMs);
    } while (ready < 0 && errno == EINTR);
    char byte = 0;
    return ready > 0 && recv(channel_.Get(), &byte, 1, MSG_DONTWAIT) == 1;
}

bool SpeakerGuard::Announce(std::int64_t deadlineNs) {
    return Send(deadlineNs);
}

void SpeakerGuard::TellOff() {
    Send(0);
}

bool SpeakerGuard::Send(std::int64_t deadlineNs) {
    if (!channel_)
        return false;
    const GuardMessage message{deadlineNs};
    ssize_t sent;
    do {
        // Never waits: a guard that is stopped must not stop the music with it.
        sent = send(channel_.Get(), &message, sizeof message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    if (sent == static_cast<ssize_t>(sizeof message))
        return true;
    problem_ = std::strerror(errno);
    End();
    return false;
}

void SpeakerGuard::End() {
    channel_.Close();
    if (process_ <= 0)
        return;
    // It has nothing left to do, and a kill also ends a guard that somebody has stopped.
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
}

}  // namespace quavix
