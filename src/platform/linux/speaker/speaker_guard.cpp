// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_guard.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <linux/input.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/common/monotonic.h"

namespace quavix {
namespace {

/// Message to the guard: a tone may sound until this time of the monotonic clock; 0: it is off.
struct GuardMessage {
    std::int64_t DeadlineNs = 0;
};

/// Time after a tone's end that the program has to switch it off before the guard does, in ns.
constexpr std::int64_t GuardGraceNs = 5 * NsPerMs;

int MsUntil(std::int64_t momentNs) {
    const std::int64_t leftNs = momentNs - MonotonicNs();
    const std::int64_t leftMs = (leftNs + NsPerMs - 1) / NsPerMs;
    return static_cast<int>(std::clamp<std::int64_t>(leftMs, 0, INT_MAX));
}

void Watch(int device, int channel) {
    // A program that was stopped just before switching a tone on may do so when it continues, long after the
    // tone's end. So an overdue tone is switched off repeatedly until the program reports that it is off.
    constexpr std::int64_t AgainAfterNs = 20 * NsPerMs;
    std::int64_t offAtNs = 0;
    for (;;) {
        pollfd waiting{channel, POLLIN, 0};
        const int ready = poll(&waiting, 1, offAtNs == 0 ? -1 : MsUntil(offAtNs));
        if (ready > 0) {
            GuardMessage message;
            if (recv(channel, &message, sizeof message, 0) != static_cast<ssize_t>(sizeof message))
                return;
            offAtNs = message.DeadlineNs == 0 ? 0 : message.DeadlineNs + GuardGraceNs;
        } else if (ready == 0) {
            WriteTone(device, 0);
            offAtNs = MonotonicNs() + AgainAfterNs;
        } else if (errno != EINTR && errno != EAGAIN) {
            return;
        }
    }
}

/// Runs the guard in its own process: switches the device off whenever a tone is overdue, and again when the
/// program is gone. Makes system calls only.
void GuardSpeaker(int device, int channel) {
    Watch(device, channel);
    WriteTone(device, 0);
}

}  // namespace

bool WriteTone(int device, std::int32_t hz) {
    input_event event{};
    event.type = EV_SND;
    event.code = SND_TONE;
    event.value = hz;
    ssize_t written;
    do {
        written = write(device, &event, sizeof event);
    } while (written < 0 && errno == EINTR);
    return written == static_cast<ssize_t>(sizeof event);
}

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
        // Never waits, so that a stopped guard does not stop the music.
        sent = send(guard_.Channel(), &message, sizeof message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    if (sent == static_cast<ssize_t>(sizeof message))
        return true;
    problem_ = std::strerror(errno);
    guard_.End();
    return false;
}

}  // namespace quavix
