// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/machine_speakers.h"

#include <cerrno>

#include <gmock/gmock.h>

#include "platform/common/speaker/fake_time.h"
#include "platform/linux/speaker/udev_rule.h"

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

TEST(MachineSpeakers, WriteNothingToAPathThatIsNotASpeaker) {
    FakeTime time;
    SpeakerChoice choice;
    choice.Clock = time.Clock();
    const SpeakerMakers makers = MachineSpeakers(choice);
    for (const char* path : {"/dev/null", "/dev/tty", "/etc/hostname"}) {
        const SpeakerAttempt attempt = makers.EventDevice(path);
        EXPECT_FALSE(attempt.Made);
        EXPECT_EQ(attempt.Reason, std::string(path) + " is not a PC speaker.");
    }
}

TEST(MachineSpeakers, KeepTimeSilentlyAndSaySo) {
    FakeTime time;
    SpeakerChoice choice;
    choice.Wanted = "silent";
    choice.Clock = time.Clock();
    const auto speaker = ChooseSpeaker(choice);
    const std::int64_t start = time.NowNs;
    speaker->Beep(440, 250);
    speaker->Beep(5, 250);
    speaker->Beep(40000, 250);
    EXPECT_EQ(time.NowNs - start, 750 * NsPerMs);
    speaker->Beep(440, 0);
    speaker->Beep(440, -3);
    EXPECT_EQ(time.NowNs - start, 750 * NsPerMs);
    EXPECT_TRUE(speaker->Status().Silent);
    EXPECT_THAT(speaker->Status().InUse, HasSubstr("silent"));
    EXPECT_EQ(speaker->Status().Reason, "Chosen with QUAVIX_SPEAKER=silent.");
}

TEST(MachineSpeakers, FallSilentWhereASoundFileCannotBeWritten) {
    FakeTime time;
    SpeakerChoice choice;
    choice.Wanted = "wav:/nowhere/at/all.wav";
    choice.Clock = time.Clock();
    const SpeakerStatus status = ChooseSpeaker(choice)->Status();
    EXPECT_TRUE(status.Silent);
    EXPECT_THAT(status.InUse, HasSubstr("silent"));
    EXPECT_THAT(status.Reason, HasSubstr("/nowhere/at/all.wav can't be written: No such file"));
}

}  // namespace
}  // namespace quavix
