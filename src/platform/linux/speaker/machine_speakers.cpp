// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/machine_speakers.h"

#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "platform/common/speaker/silent_speaker.h"
#include "platform/common/speaker/sound_card_speaker.h"
#include "platform/common/speaker/wav_speaker.h"
#include "platform/linux/speaker/event_speaker.h"
#include "platform/linux/speaker/linux_input_devices.h"
#include "platform/linux/speaker/speaker_lock.h"
#include "platform/linux/speaker/udev_rule.h"

namespace quavix {
namespace {

// The speaker, or its own words about why it can't be used.
SpeakerAttempt UnlessFailed(std::unique_ptr<PlatformSpeaker> speaker) {
    SpeakerAttempt attempt;
    if (speaker->Failed())
        attempt.Reason = speaker->Status().Reason;
    else
        attempt.Made = std::move(speaker);
    return attempt;
}

SpeakerAttempt MakeEventSpeaker(const SpeakerChoice& choice, const std::string& path) {
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

}  // namespace

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

SpeakerMakers MachineSpeakers(const SpeakerChoice& choice) {
    SpeakerMakers makers;
    makers.EventDevice = [choice](const std::string& path) { return MakeEventSpeaker(choice, path); };
    makers.SoundCard = [clock = choice.Clock] {
        SpeakerAttempt attempt;
        attempt.Made = std::make_unique<SoundCardSpeaker>(clock);
        return attempt;
    };
    makers.SoundFile = [clock = choice.Clock](const std::string& path) {
        return UnlessFailed(std::make_unique<WavSpeaker>(path, clock));
    };
    makers.Silent = [clock = choice.Clock] {
        SpeakerAttempt attempt;
        attempt.Made = std::make_unique<SilentSpeaker>(clock);
        return attempt;
    };
    return makers;
}

}  // namespace quavix
