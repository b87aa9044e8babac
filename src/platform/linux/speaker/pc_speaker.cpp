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
    switch (found.Problem) {
        case DeviceProblem::NotThere:
            return {.Reason = "This machine shows no PC speaker: its driver is not loaded, or there is none.",
                    .Remedy = "sudo modprobe pcspkr"};
        case DeviceProblem::NoPermission:
            return {.Reason = fmt::format("You have no permission to sound the PC speaker ({}).", found.Path),
                    .Remedy = fmt::format("echo '{}' | sudo tee {}\n{}", PcSpeakerRule, PcSpeakerRulePath,
                                          PcSpeakerRuleReload)};
        case DeviceProblem::NotASpeaker:
            return {.Reason = fmt::format("{} is not a PC speaker.", found.Path)};
        case DeviceProblem::CannotOpen:
            return {.Reason = fmt::format("The PC speaker ({}) can't be opened: {}.", found.Path,
                                          std::strerror(found.Error))};
        case DeviceProblem::None:
            break;
    }
    return {};
}

SpeakerAttempt MakePcSpeaker(const SpeakerChoice& choice, const std::string& path) {
    FoundDevice found = FindPcSpeaker(LinuxInputDevices(), path);
    if (found.Problem != DeviceProblem::None)
        return ExplainDevice(found);
    SpeakerLock lock = TakeSpeakerLock(choice.RuntimeFolder, choice.TempFolder);
    if (!lock.File)
        return {.Reason = lock.Reason};
    return UnlessFailed(
        std::make_unique<EventSpeaker>(std::move(found.Device), std::move(lock.File), choice.Clock));
}

}  // namespace quavix
