// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_guard.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>

#include "platform/linux/speaker/guard_process.h"

namespace quavix {

bool SpeakerGuard::Start() {
    const bool started = guard_.Start("quavix-guard", device_, GuardSpeaker);
    problem_ = guard_.Problem();
    return started;
}

bool SpeakerGuard::Announce(std::int64_t deadlineNs) {
    return Send(deadlineNs);
}

void SpeakerGuard::TellOff() {
    Send(0);
}

bool SpeakerGuard::Send(std::int64_t deadlineNs) {
    if (guard_.Channel() < 0)
        return false;
    const GuardMessage message{deadlineNs};
    ssize_t sent;
    do {
        // Never waits: a guard that is stopped must not stop the music with it.
        sent = send(guard_.Channel(), &message, sizeof message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    if (sent == static_cast<ssize_t>(sizeof message))
        return true;
    problem_ = std::strerror(errno);
    guard_.End();
    return false;
}

}  // namespace quavix
