// SPDX-License-Identifier: MIT
#include "platform/common/last_words.h"

#include <cerrno>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace quavix {
namespace {

void WaitForEnd(int channel) {
    char byte = 0;
    ssize_t got;
    do {
        got = recv(channel, &byte, 1, 0);
    } while (got > 0 || (got < 0 && errno == EINTR));
}

void WriteAll(int device, std::string_view bytes) {
    constexpr int PatienceMs = 1000;
    while (!bytes.empty()) {
        const ssize_t written = write(device, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        pollfd waiting{device, POLLOUT, 0};
        const bool mayGoOn = errno == EINTR || errno == EAGAIN;
        if (!mayGoOn || poll(&waiting, 1, PatienceMs) <= 0)
            return;
    }
}

}  // namespace

bool LastWords::Leave(int device, const std::string& words) {
    return guard_.Start("quavix-words", device, [&words](int guardsDevice, int channel) {
        WaitForEnd(channel);
        WriteAll(guardsDevice, words);
    });
}

}  // namespace quavix
