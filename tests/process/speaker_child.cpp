// SPDX-License-Identifier: MIT
// Plays on an event device that is open as descriptor 3, and ends as its first argument says.
#include <csignal>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "platform/linux/speaker/event_speaker.h"
#include "platform/linux/speaker/speaker_lock.h"

namespace {

constexpr int DeviceFd = 3;
constexpr int LockRefused = 7;

void RaiseAsUsual(int signal) {
    std::signal(signal, SIG_DFL);  // not the handler of a sanitizer
    std::raise(signal);
}

// Endings in the middle of the first tone.
const std::map<std::string, std::function<void()>> Endings{
    {"exception", [] { throw std::runtime_error("in the middle"); }},
    {"uncaught", [] { throw std::runtime_error("in the middle"); }},
    {"exit", [] { std::exit(4); }},
    {"_exit", [] { _exit(5); }},
    {"abort", [] { RaiseAsUsual(SIGABRT); }},
    {"segfault", [] { RaiseAsUsual(SIGSEGV); }},
};

void Play(const std::string& how, quavix::FileDescriptor lock) {
    quavix::ToneClock clock;
    if (Endings.contains(how))
        clock.WaitUntil = [how](std::int64_t) { Endings.at(how)(); };
    quavix::EventSpeaker speaker(quavix::FileDescriptor(DeviceFd), std::move(lock), clock);
    if (speaker.Failed())
        std::exit(9);
    if (how == "song") {
        speaker.Beep(440, 50);
        speaker.Beep(20, 30);
        speaker.Beep(32767, 30);
        speaker.Beep(660, 0);
        speaker.Beep(21, 20);
        speaker.Beep(32766, 20);
    } else if (how == "stop") {
        speaker.Beep(440, 300);
        speaker.Beep(550, 20);
    } else if (how == "guard") {
        speaker.Beep(440, 300);
        speaker.Beep(550, 60'000);
    } else {
        speaker.Beep(440, 60'000);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::string how = argc > 1 ? argv[1] : "";
    quavix::FileDescriptor lock;
    if (argc > 2) {
        lock = quavix::TakeSpeakerLock(argv[2], argv[2]).File;
        if (!lock)
            return LockRefused;
    }
    if (how == "uncaught")
        Play(how, std::move(lock));
    try {
        Play(how, std::move(lock));
    } catch (const std::runtime_error&) {
        return 3;
    }
    return 0;
}
