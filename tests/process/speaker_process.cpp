// SPDX-License-Identifier: MIT
#include "speaker_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <linux/input.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

#include "childs_signals.h"
#include "platform/common/monotonic.h"
#include "process/patience.h"

namespace quavix {
namespace {

constexpr int ChildsDevice = 3;

// State and parent of a process, from the fields that follow its name.
std::pair<char, pid_t> StateAndParent(pid_t process) {
    std::ifstream stat("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(stat, text);
    const auto name = text.rfind(')');
    if (name == std::string::npos || name + 4 >= text.size())
        return {'?', 0};
    return {text[name + 2], std::atoi(text.c_str() + name + 4)};
}

}  // namespace

DevicePipe::DevicePipe() {
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    readEnd_ = FileDescriptor(ends[0]);
    writeEnd_ = FileDescriptor(ends[1]);
}

std::optional<ArrivedTone> DevicePipe::Next() {
    pollfd waiting{readEnd_.Get(), POLLIN, 0};
    if (poll(&waiting, 1, test::PatienceMs) != 1) {
        ADD_FAILURE() << "nothing arrived";
        return std::nullopt;
    }
    input_event event{};
    const ssize_t got = read(readEnd_.Get(), &event, sizeof event);
    if (got == 0)
        return std::nullopt;
    EXPECT_EQ(got, static_cast<ssize_t>(sizeof event));
    EXPECT_EQ(event.type, EV_SND);
    EXPECT_EQ(event.code, SND_TONE);
    return ArrivedTone{event.value, MonotonicNs()};
}

std::vector<std::int32_t> DevicePipe::Rest() {
    std::vector<std::int32_t> rest;
    while (const auto tone = Next())
        rest.push_back(tone->Hz);
    return rest;
}

SpeakerProcess::SpeakerProcess(const std::string& how, const std::string& lockFolder) {
    const FileDescriptor device = Device.TakeWriteEnd();
    process_ = fork();
    if (process_ == 0) {
        setpgid(0, 0);
        ResetSignals();
        // Tests provoke crashes.
        const rlimit noCore{};
        setrlimit(RLIMIT_CORE, &noCore);
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
        if (device.Get() == ChildsDevice)
            fcntl(ChildsDevice, F_SETFD, 0);
        else
            dup2(device.Get(), ChildsDevice);
        execl(QUAVIX_SPEAKER_CHILD, QUAVIX_SPEAKER_CHILD, how.c_str(),
              lockFolder.empty() ? nullptr : lockFolder.c_str(), nullptr);
        _exit(127);
    }
    EXPECT_GT(process_, 0);
}

SpeakerProcess::~SpeakerProcess() {
    if (ended_)
        return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

void SpeakerProcess::Signal(int signal) const {
    EXPECT_EQ(kill(-process_, signal), 0);
}

int SpeakerProcess::Wait() {
    int status = 0;
    while (waitpid(process_, &status, WUNTRACED) < 0 && errno == EINTR) {
    }
    ended_ = !WIFSTOPPED(status);
    return status;
}

char SpeakerProcess::State() const {
    return StateAndParent(process_).first;
}

std::vector<pid_t> SpeakerProcess::Children() const {
    std::vector<pid_t> children;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t process = std::atoi(entry.path().filename().c_str());
        if (process > 0 && StateAndParent(process).second == process_)
            children.push_back(process);
    }
    return children;
}

}  // namespace quavix
