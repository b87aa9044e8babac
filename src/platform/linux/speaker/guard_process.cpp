// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/guard_process.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/linux/speaker/tone_clock.h"
#include "platform/linux/speaker/tone_events.h"

namespace quavix {
namespace {

constexpr int Device = 0;
constexpr int Channel = 1;

// Anything else the guard kept open would stay open for others too: a pipe's end, a terminal, a server's
// socket.
bool KeepOnly(int device, int channel) {
    // Out of the way first, or one of the two could be lost under the other's new number.
    const int highDevice = fcntl(device, F_DUPFD_CLOEXEC, 10);
    const int highChannel = fcntl(channel, F_DUPFD_CLOEXEC, 10);
    return dup2(highDevice, Device) == Device && dup2(highChannel, Channel) == Channel &&
           close_range(Channel + 1, UINT_MAX, 0) == 0;
}

// What ends or stops the program must not end or stop the guard before it has done its work.
void IgnoreSignals() {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    for (int signal = 1; signal < NSIG; ++signal)
        sigaction(signal, &ignore, nullptr);
}

int MsUntil(std::int64_t momentNs) {
    const std::int64_t leftNs = momentNs - MonotonicNs();
    const std::int64_t leftMs = (leftNs + ToneClock::NsPerMs - 1) / ToneClock::NsPerMs;
    return static_cast<int>(std::clamp<std::int64_t>(leftMs, 0, INT_MAX));
}

void Watch() {
    // A program that was stopped just before it switched a tone on may do so when it continues, long after
    // the tone's end. So an overdue tone is switched off again and again until the program says it has done
    // so.
    constexpr std::int64_t AgainAfterNs = 20 * ToneClock::NsPerMs;
    std::int64_t offAtNs = 0;
    for (;;) {
        pollfd waiting{Channel, POLLIN, 0};
        const int ready = poll(&waiting, 1, offAtNs == 0 ? -1 : MsUntil(offAtNs));
        if (ready > 0) {
            GuardMessage message;
            if (recv(Channel, &message, sizeof message, 0) != static_cast<ssize_t>(sizeof message))
                return;
            offAtNs = message.DeadlineNs == 0 ? 0 : message.DeadlineNs + GuardGraceNs;
        } else if (ready == 0) {
            WriteTone(Device, 0);
            offAtNs = MonotonicNs() + AgainAfterNs;
        } else if (errno != EINTR && errno != EAGAIN) {
            return;
        }
    }
}

}  // namespace

void RunGuardProcess(int device, int channel) {
    setsid();
    IgnoreSignals();
    prctl(PR_SET_NAME, "quavix-guard");
    if (KeepOnly(device, channel) && chdir("/") == 0 && send(Channel, "r", 1, MSG_NOSIGNAL) == 1)
        Watch();
    WriteTone(Device, 0);
    _exit(0);
}

}  // namespace quavix
