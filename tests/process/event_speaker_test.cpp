// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/event_speaker.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/wait.h>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "busy_machine.h"
#include "speaker_process.h"

namespace quavix {
namespace {

using testing::Each;
using testing::HasSubstr;

std::vector<std::int32_t> Tones(const std::vector<std::int32_t>& hertz) {
    std::vector<std::int32_t> tones;
    for (const std::int32_t hz : hertz) {
        if (hz != 0 || (!tones.empty() && tones.back() != 0))
            tones.push_back(hz);
    }
    return tones;
}

TEST(EventSpeaker, WritesOnAndOffForEachToneAndNothingForSilence) {
    SpeakerProcess child("song");
    EXPECT_EQ(Tones(child.Device.Rest()), (std::vector<std::int32_t>{440, 0, 21, 0, 32766, 0}));
    EXPECT_EQ(child.Wait(), 0);
}

TEST(EventSpeaker, KeepsTheLengthOfATone) {
    const std::int64_t start = MonotonicNs();
    SpeakerProcess child("stop");
    const auto on = child.Device.Next();
    const auto off = child.Device.Next();
    ASSERT_TRUE(on && off);
    EXPECT_EQ(on->Hz, 440);
    EXPECT_EQ(off->Hz, 0);
    // From before the tone: a busy machine may show its start late, and its end later still.
    EXPECT_GE(off->AtNs - start, 300 * NsPerMs);
    EXPECT_LT(off->AtNs - on->AtNs, 300 * NsPerMs + HangNs);
    child.Device.Rest();
}

TEST(EventSpeaker, ReturnsAfterTheToneAndLeavesNoProcessBehind) {
    DevicePipe device;
    const std::int64_t start = MonotonicNs();
    {
        EventSpeaker speaker(device.TakeWriteEnd(), FileDescriptor(), {});
        ASSERT_FALSE(speaker.Failed());
        EXPECT_EQ(speaker.Status().InUse, "PC speaker");
        EXPECT_EQ(speaker.Status().Reason, "");
        EXPECT_FALSE(speaker.Status().Silent);
        speaker.Beep(440, 30);
        EXPECT_GE(MonotonicNs() - start, 30 * NsPerMs);
        speaker.Beep(0, 30);
        EXPECT_GE(MonotonicNs() - start, 60 * NsPerMs);
        speaker.Beep(440, -1);
    }
    EXPECT_EQ(Tones(device.Rest()), (std::vector<std::int32_t>{440, 0}));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(EventSpeaker, EndsEachToneItsLengthAfterTheCall) {
    std::vector<std::int64_t> deadlines;
    std::int64_t nowNs = NsPerSecond;
    ToneClock clock;
    clock.Now = [&] { return std::exchange(nowNs, nowNs + NsPerMs); };  // asking takes its time
    clock.WaitUntil = [&](std::int64_t deadlineNs) {
        deadlines.push_back(deadlineNs);
        nowNs = deadlineNs;
    };
    DevicePipe device;
    EventSpeaker speaker(device.TakeWriteEnd(), FileDescriptor(), clock);
    for (int tone = 0; tone < 3; ++tone)
        speaker.Beep(440, 100);
    EXPECT_THAT(deadlines, testing::ElementsAre(1'100'000'000, 1'200'000'000, 1'300'000'000));
}

TEST(EventSpeaker, IsNotUsedWithoutItsGuard) {
    const EventSpeaker speaker(FileDescriptor(), FileDescriptor(), {});
    EXPECT_TRUE(speaker.Failed());
    EXPECT_TRUE(speaker.Status().Silent);
    EXPECT_THAT(speaker.Status().Reason, HasSubstr("guard"));
}

TEST(EventSpeaker, KeepsTimeAndReportsAFailedDevice) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);  // a pipe's habit, not a device's
    {
        EventSpeaker speaker(DevicePipe().TakeWriteEnd(), FileDescriptor(), {});  // the reading end is gone
        ASSERT_FALSE(speaker.Failed());
        const std::int64_t start = MonotonicNs();
        speaker.Beep(440, 20);
        EXPECT_GE(MonotonicNs() - start, 20 * NsPerMs);
        EXPECT_TRUE(speaker.Failed());
        EXPECT_THAT(speaker.Status().Reason, HasSubstr("Broken pipe"));
    }
    std::signal(SIGPIPE, before);
}

/// A way in which the child ends in the middle of a tone of a minute.
struct Ending {
    const char* How;
    int Signal = 0;  // sent once the tone sounds
    int ExitStatus = -1;
};

class EventSpeakerIsOffAfter : public testing::TestWithParam<Ending> {};

TEST_P(EventSpeakerIsOffAfter, IsSilentAfterEveryKindOfExit) {
    SpeakerProcess child(GetParam().How);
    const auto on = child.Device.Next();
    ASSERT_TRUE(on);
    ASSERT_EQ(on->Hz, 440);
    if (GetParam().Signal != 0)
        child.Signal(GetParam().Signal);
    // The pipe's end means that neither the child nor its guard is left.
    const auto rest = child.Device.Rest();
    EXPECT_LT(MonotonicNs() - on->AtNs, HangNs);
    EXPECT_FALSE(rest.empty());
    EXPECT_THAT(rest, Each(0));
    const int status = child.Wait();
    if (GetParam().ExitStatus >= 0)
        EXPECT_EQ(WEXITSTATUS(status), GetParam().ExitStatus);
    else
        EXPECT_TRUE(WIFSIGNALED(status));
}

std::string NameOfEnding(const testing::TestParamInfo<Ending>& ending) {
    if (ending.param.Signal != 0)
        return std::string("Sig") + sigabbrev_np(ending.param.Signal);
    return std::string("Child_") + ending.param.How;
}

INSTANTIATE_TEST_SUITE_P(Endings, EventSpeakerIsOffAfter,
                         testing::Values(Ending{"exception", 0, 3}, Ending{"uncaught"}, Ending{"exit", 0, 4},
                                         Ending{"_exit", 0, 5}, Ending{"abort"}, Ending{"segfault"},
                                         Ending{"wait", SIGINT}, Ending{"wait", SIGTERM},
                                         Ending{"wait", SIGHUP}, Ending{"wait", SIGQUIT},
                                         Ending{"wait", SIGPIPE}, Ending{"wait", SIGUSR1},
                                         Ending{"wait", SIGKILL}),
                         NameOfEnding);

class EventSpeakerIsOffInTime : public testing::TestWithParam<int> {};

TEST_P(EventSpeakerIsOffInTime, WhileTheProgramIsStopped) {
    SpeakerProcess child("stop");
    const auto on = child.Device.Next();
    ASSERT_TRUE(on);
    ASSERT_EQ(on->Hz, 440);
    child.Signal(GetParam());
    ASSERT_TRUE(WIFSTOPPED(child.Wait()));
    const auto off = child.Device.Next();
    ASSERT_TRUE(off);
    EXPECT_EQ(off->Hz, 0);
    EXPECT_LT(off->AtNs - on->AtNs, 300 * NsPerMs + HangNs);
    EXPECT_EQ(child.State(), 'T');
    child.Signal(SIGCONT);
    EXPECT_EQ(Tones(child.Device.Rest()), (std::vector<std::int32_t>{550, 0}));
    EXPECT_EQ(child.Wait(), 0);
}

std::string NameOfStop(const testing::TestParamInfo<int>& stop) {
    return std::string("Sig") + sigabbrev_np(stop.param);
}

INSTANTIATE_TEST_SUITE_P(Stops, EventSpeakerIsOffInTime, testing::Values(SIGTSTP, SIGSTOP), NameOfStop);

TEST(EventSpeaker, EndsItsToneItselfWhenTheGuardIsKilledAndGetsAnotherOne) {
    SpeakerProcess child("guard");
    ASSERT_EQ(child.Device.Next()->Hz, 440);
    const auto guards = child.Children();
    ASSERT_EQ(guards.size(), 1u);
    ASSERT_EQ(kill(guards[0], SIGKILL), 0);
    const auto off = child.Device.Next();
    ASSERT_TRUE(off);
    EXPECT_EQ(off->Hz, 0);
    auto next = child.Device.Next();
    ASSERT_TRUE(next);
    EXPECT_EQ(next->Hz, 550);
    // The new one works, and the old one is no zombie.
    const auto newGuards = child.Children();
    ASSERT_EQ(newGuards.size(), 1u);
    EXPECT_NE(newGuards[0], guards[0]);
    child.Signal(SIGKILL);
    EXPECT_THAT(child.Device.Rest(), testing::AllOf(Each(0), testing::Not(testing::IsEmpty())));
}

/// Sends these signals to the guard of a program whose first tone sounds.
void SendToGuard(SpeakerProcess& child, std::initializer_list<int> signals) {
    ASSERT_EQ(child.Device.Next()->Hz, 440);
    const auto guards = child.Children();
    ASSERT_EQ(guards.size(), 1u);
    for (const int signal : signals)
        ASSERT_EQ(kill(guards[0], signal), 0);
}

TEST(EventSpeaker, HasAGuardThatOtherSignalsDoNotEnd) {
    SpeakerProcess child("wait");
    ASSERT_NO_FATAL_FAILURE(
        SendToGuard(child, {SIGINT, SIGTERM, SIGHUP, SIGTSTP, SIGPIPE, SIGQUIT, SIGUSR1, SIGALRM}));
    child.Signal(SIGKILL);
    EXPECT_THAT(child.Device.Rest(), testing::AllOf(Each(0), testing::Not(testing::IsEmpty())));
}

TEST(EventSpeaker, EndsEvenWhenItsGuardIsStopped) {
    SpeakerProcess child("stop");
    ASSERT_NO_FATAL_FAILURE(SendToGuard(child, {SIGSTOP}));
    EXPECT_EQ(Tones(child.Device.Rest()), (std::vector<std::int32_t>{550, 0}));
    EXPECT_EQ(child.Wait(), 0);
}

TEST(EventSpeaker, IsForOneCopyAtATimeAndFreeAgainWhenThatIsKilled) {
    std::string folder = std::filesystem::temp_directory_path() / "quavix-copies-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    SpeakerProcess first("wait", folder);
    ASSERT_EQ(first.Device.Next()->Hz, 440);

    SpeakerProcess second("wait", folder);
    EXPECT_TRUE(second.Device.Rest().empty());
    EXPECT_EQ(WEXITSTATUS(second.Wait()), 7);

    first.Signal(SIGKILL);
    first.Wait();
    SpeakerProcess third("wait", folder);
    const auto on = third.Device.Next();
    ASSERT_TRUE(on);
    EXPECT_EQ(on->Hz, 440);
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace quavix
