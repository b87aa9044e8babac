// SPDX-License-Identifier: MIT
#include <cerrno>

#include <gmock/gmock.h>

#include "platform/common/speaker/choose_speaker.h"
#include "platform/common/speaker/fake_time.h"
#include "platform/linux/speaker/speaker_device.h"

namespace quavix {
namespace {

using testing::HasSubstr;

FoundDevice Found(DeviceProblem problem, int error = 0) {
    FoundDevice found;
    found.Path = "/dev/input/event7";
    found.Problem = problem;
    found.Error = error;
    return found;
}

TEST(DeviceExplanation, OffersToLoadAMissingDriver) {
    const SpeakerAttempt attempt = ExplainDevice(Found(DeviceProblem::NotThere));
    EXPECT_THAT(attempt.Reason, HasSubstr("driver is not loaded"));
    EXPECT_EQ(attempt.Remedy, "sudo modprobe pcspkr");
}

TEST(DeviceExplanation, OffersTheRuleReadyToCopyWherePermissionIsMissing) {
    const SpeakerAttempt attempt = ExplainDevice(Found(DeviceProblem::NoPermission, EACCES));
    EXPECT_THAT(attempt.Reason, HasSubstr("no permission"));
    EXPECT_THAT(attempt.Reason, HasSubstr("/dev/input/event7"));
    EXPECT_THAT(attempt.Remedy, HasSubstr(std::string("'") + std::string(PcSpeakerRule) + "'"));
    EXPECT_THAT(attempt.Remedy, HasSubstr(std::string("sudo tee ") + std::string(PcSpeakerRulePath)));
    EXPECT_THAT(attempt.Remedy, HasSubstr(std::string(PcSpeakerRuleReload)));
    EXPECT_THAT(attempt.Remedy, Not(HasSubstr("usermod")));
    EXPECT_THAT(attempt.Remedy, Not(HasSubstr("chmod")));
}

TEST(DeviceExplanation, NamesAnythingElseThatIsWrong) {
    EXPECT_EQ(ExplainDevice(Found(DeviceProblem::NotASpeaker)).Reason,
              "/dev/input/event7 is not a PC speaker.");
    EXPECT_THAT(ExplainDevice(Found(DeviceProblem::CannotOpen, ENODEV)).Reason, HasSubstr("No such device"));
}

TEST(PcSpeaker, IsNotSoughtAtAPathThatIsNotASpeaker) {
    FakeTime time;
    SpeakerChoice choice;
    choice.Clock = time.Clock();
    for (const char* path : {"/dev/null", "/dev/tty", "/etc/hostname"}) {
        const SpeakerAttempt attempt = MakePcSpeaker(choice, path);
        EXPECT_FALSE(attempt.Made);
        EXPECT_EQ(attempt.Reason, std::string(path) + " is not a PC speaker.");
    }
}

}  // namespace
}  // namespace quavix
