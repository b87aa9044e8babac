// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/event_speaker.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "platform/linux/speaker/speaker_guard.h"

namespace quavix {

EventSpeaker::EventSpeaker(FileDescriptor device, FileDescriptor lock, ToneClock clock)
    : lock_(std::move(lock)), device_(std::move(device)), clock_(std::move(clock)) {
    if (!StartGuard())
        failure_ =
            fmt::format("The guard that keeps the PC speaker from sounding on could not be started ({}).",
                        guard_.Problem());
}

/// Starts the guard, replacing an earlier one.
bool EventSpeaker::StartGuard() {
    return guard_.Start("quavix-guard", device_.Get(), GuardSpeaker);
}

EventSpeaker::~EventSpeaker() {
    WriteTone(device_.Get(), 0);
}

void EventSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    if (durationMs <= 0)
        return;
    const std::int64_t deadlineNs = clock_.DeadlineAfter(durationMs);
    if (Failed() || !CanSound(frequency) || !SwitchOn(frequency, deadlineNs)) {
        clock_.WaitUntil(deadlineNs);
        return;
    }
    // Switches the tone off even if the wait ends with an exception.
    struct OffAtEnd {
        EventSpeaker& Sounding;
        ~OffAtEnd() { Sounding.SwitchOff(); }
    } offAtEnd{*this};
    clock_.WaitUntil(deadlineNs);
}

bool EventSpeaker::SwitchOn(std::int32_t frequency, std::int64_t deadlineNs) {
    if (!guard_.Send(deadlineNs) && !(StartGuard() && guard_.Send(deadlineNs))) {
        failure_ = fmt::format(
            "The guard that keeps the PC speaker from sounding on is gone and could not be "
            "started again ({}).",
            guard_.Problem());
        return false;
    }
    // The program may have been stopped before this point.
    if (clock_.Now() < deadlineNs && !WriteTone(device_.Get(), frequency))
        failure_ = fmt::format("The PC speaker's device fails: {}.", std::strerror(errno));
    return true;
}

void EventSpeaker::SwitchOff() {
    if (!WriteTone(device_.Get(), 0) && failure_.empty())
        failure_ = fmt::format("The PC speaker's device fails: {}.", std::strerror(errno));
    // A missing guard is not reported before the next tone.
    constexpr std::int64_t IsOff = 0;
    guard_.Send(IsOff);
}

SpeakerStatus EventSpeaker::Status() const {
    return {.InUse = Failed() ? "silent" : "PC speaker", .Reason = failure_, .Silent = Failed()};
}

}  // namespace quavix
