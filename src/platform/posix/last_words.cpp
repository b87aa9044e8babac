// SPDX-License-Identifier: MIT
#include "platform/common/last_words.h"

#include <cerrno>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/posix/forked_guard.h"

namespace quavix {
namespace {

void WaitForEnd(int channel) {
    char byte = 0;
    while (Uninterrupted([&] { return recv(channel, &byte, 1, 0); }) > 0) {
    }
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

struct LastWords::Guard : ForkedGuard {};

LastWords::LastWords() : guard_(std::make_unique<Guard>()) {}

LastWords::~LastWords() = default;

void LastWords::Withdraw() {
    guard_->End();
}

const std::string& LastWords::Problem() const {
    return guard_->Problem();
}

bool LastWords::Leave(WaitHandle device, const std::string& words) {
    return guard_->Start("quavix-words", static_cast<int>(device), [&words](int guardsDevice, int channel) {
        WaitForEnd(channel);
        WriteAll(guardsDevice, words);
    });
}

}  // namespace quavix
