// SPDX-License-Identifier: MIT
#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "platform/common/speaker/choose_speaker.h"
#include "platform/linux/speaker/event_speaker.h"
#include "platform/linux/speaker/speaker_device.h"
#include "platform/linux/speaker/speaker_lock.h"

namespace quavix {

SpeakerAttempt ExplainDevice(const FoundDevice& found) {
    SpeakerAttempt attempt;
    switch (found.Problem) {
        case DeviceProblem::None:
            break;
        case DeviceProblem::NotThere:
            attempt.Reason = "This machine shows no PC speaker: its driver is not loaded, or there is none.";
            attempt.Remedy = "sudo modprobe pcspkr";
            break;
        case DeviceProblem::NoPermission:
            attempt.Reason = fmt::format("You have no permission to sound the PC speaker ({}).", found.Path);
            attempt.Remedy = fmt::format("echo '{}' | sudo tee {}\n{}", PcSpeakerRule, PcSpeakerRulePath,
                                         PcSpeakerRuleReload);
            break;
        case DeviceProblem::NotASpeaker:
            attempt.Reason = fmt::format("{} is not a PC speaker.", found.Path);
            break;
        case DeviceProblem::CannotOpen:
            attempt.Reason = fmt::format("The PC speaker ({}) can't be opened: {}.", found.Path,
                                         std::strerror(found.Error));
            break;
    }
    return attempt;
}

SpeakerAttempt MakePcSpeaker(const SpeakerChoice& choice, const std::string& path) {
    FoundDevice found = FindPcSpeaker(LinuxInputDevices(), path);
    if (found.Problem != DeviceProblem::None)
        return ExplainDevice(found);
    SpeakerLock lock = TakeSpeakerLock(choice.RuntimeFolder, choice.TempFolder);
    if (!lock.File) {
        SpeakerAttempt attempt;
        attempt.Reason = std::move(lock.Reason);
        return attempt;
    }
    return UnlessFailed(
        std::make_unique<EventSpeaker>(std::move(found.Device), std::move(lock.File), choice.Clock));
}

}  // namespace quavix
