// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/guard_process.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/socket.h>

#include "platform/common/monotonic.h"
#include "platform/linux/speaker/tone_events.h"

namespace quavix {
namespace {

int MsUntil(std::int64_t momentNs) {
    const std::int64_t leftNs = momentNs - MonotonicNs();
    const std::int64_t leftMs = (leftNs + NsPerMs - 1) / NsPerMs;
    return static_cast<int>(std::clamp<std::int64_t>(leftMs, 0, INT_MAX));
}

void Watch(int device, int channel) {
    // A program that was stopped just before it switched a tone on may do so when it continues, long after
    // the tone's end. So an overdue tone is switched off again and again until the program says it has done
    // so.
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

}  // namespace

void GuardSpeaker(int device, int channel) {
    Watch(device, channel);
    WriteTone(device, 0);
}

}  // namespace quavix
