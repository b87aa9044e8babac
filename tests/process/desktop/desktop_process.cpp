// SPDX-License-Identifier: MIT
#include "desktop_process.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <linux/input.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

#include "process/childs_signals.h"
#include "process/end_of_child.h"
#include "process/patience.h"
#include "wall_clock.h"

namespace quavix {
namespace {

constexpr int ChildsDevice = 3;
constexpr std::int64_t SecondsPerDay = 86'400;

bool MakePipe(FileDescriptor& readEnd, FileDescriptor& writeEnd) {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    readEnd = FileDescriptor(ends[0]);
    writeEnd = FileDescriptor(ends[1]);
    return true;
}

}  // namespace

DesktopProcess::DesktopProcess(const std::vector<std::string>& arguments, const std::string& timeZone) {
    FileDescriptor device;
    FileDescriptor output;
    if (!MakePipe(device_, device) || !MakePipe(output_, output))
        return;
    std::vector<char*> childsArguments{const_cast<char*>(QUAVIX_DESKTOP_CHILD)};
    for (const std::string& argument : arguments)
        childsArguments.push_back(const_cast<char*>(argument.c_str()));
    childsArguments.push_back(nullptr);
    process_ = fork();
    if (process_ != 0)
        return;
    setpgid(0, 0);
    ResetSignals();
    if (!timeZone.empty())
        setenv("TZ", timeZone.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("XDG_STATE_HOME", stateHome_.Path().c_str(), 1);
    dup2(output.Get(), STDOUT_FILENO);
    if (device.Get() == ChildsDevice)
        fcntl(ChildsDevice, F_SETFD, 0);
    else
        dup2(device.Get(), ChildsDevice);
    execv(QUAVIX_DESKTOP_CHILD, childsArguments.data());
    _exit(127);
}

DesktopProcess::~DesktopProcess() {
    if (process_ <= 0)
        return;
    kill(process_, SIGKILL);
    Wait();
}

void DesktopProcess::Signal(int signal) const {
    if (process_ > 0)
        kill(process_, signal);
}

int DesktopProcess::Wait() {
    return test::WaitForEnd(std::exchange(process_, -1));
}

std::string DesktopProcess::Output() const {
    std::string output;
    char bytes[256];
    for (ssize_t got; (got = read(output_.Get(), bytes, sizeof bytes)) > 0;)
        output.append(bytes, static_cast<std::size_t>(got));
    return output;
}

std::optional<DesktopProcess::Tone> DesktopProcess::NextTone() const {
    pollfd waiting{device_.Get(), POLLIN, 0};
    input_event event{};
    if (poll(&waiting, 1, test::PatienceMs) != 1 ||
        read(device_.Get(), &event, sizeof event) != static_cast<ssize_t>(sizeof event))
        return std::nullopt;
    return Tone{event.value, WallClockNs()};
}

StartTime::StartTime(int secondsFromNow) {
    constexpr int Noon = 12;
    constexpr std::int64_t SecondsPerHour = 3'600;
    const std::int64_t at = WallClockNs() / NsPerSecond + 1 + secondsFromNow;
    AtNs = at * NsPerSecond;
    // So many hours behind Greenwich it is the hour after noon.
    TimeZone = "NOON" + std::to_string(at % SecondsPerDay / SecondsPerHour - Noon);
}

std::vector<std::string> StartTime::ChildsArguments() const {
    constexpr std::int64_t Sixty = 60;
    const std::int64_t seconds = AtNs / NsPerSecond;
    return {"synchro", "12", std::to_string(seconds / Sixty % Sixty), std::to_string(seconds % Sixty)};
}

}  // namespace quavix
