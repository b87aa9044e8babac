// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_guard.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <linux/input.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/common/monotonic.h"
#include "platform/posix/file_descriptor.h"

namespace quavix {
namespace {

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
            std::int64_t deadlineNs = 0;
            if (recv(channel, &deadlineNs, sizeof deadlineNs, 0) != static_cast<ssize_t>(sizeof deadlineNs))
                return;
            offAtNs = deadlineNs == 0 ? 0 : deadlineNs + GuardGraceNs;
        } else if (ready == 0) {
            WriteTone(device, 0);
            offAtNs = MonotonicNs() + AgainAfterNs;
        } else if (errno != EINTR && errno != EAGAIN) {
            return;
        }
    }
}

}  // namespace

void GuardSpeaker(int device, int channel) {
    Watch(device, channel);
    WriteTone(device, 0);
}

bool WriteTone(int device, std::int32_t hz) {
    input_event event{};
    event.type = EV_SND;
    event.code = SND_TONE;
    event.value = hz;
    const ssize_t written = Uninterrupted([&] { return write(device, &event, sizeof event); });
    return written == static_cast<ssize_t>(sizeof event);
}

}  // namespace quavix
