// SPDX-License-Identifier: MIT
#include "platform/common/speaker/choose_speaker.h"

#include <memory>
#include <utility>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "fake_time.h"

namespace quavix {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class FakeSpeaker : public PlatformSpeaker {
  public:
    FakeSpeaker(std::string name, std::string& heard, const bool& fails)
        : name_(std::move(name)), heard_(heard), fails_(fails) {}

    void Beep(std::int32_t frequency, std::int32_t durationMs) override {
        heard_ += fmt::format("{} {} Hz {} ms\n", name_, frequency, durationMs);
    }
    SpeakerStatus Status() const override {
        SpeakerStatus status;
        status.InUse = name_;
        if (fails_)
            status.Reason = fmt::format("The {} broke.", name_);
        return status;
    }
    bool Failed() const override { return fails_; }

  private:
    std::string name_;
    std::string& heard_;
    const bool& fails_;
};

/// Speakers that can be had or not, as a test says.
struct FakeMachine {
    std::string NoDevice;
    std::string DeviceRemedy;
    std::string NoCard;
    std::string NoFile;
    bool DeviceFails = false;
    const bool Never = false;
    std::string Heard;
    std::string AskedFor;

    SpeakerAttempt Make(const std::string& name, const std::string& refusal, const std::string& remedy,
                        const bool& fails) {
        AskedFor += name + '\n';
        if (!refusal.empty())
            return {nullptr, refusal, remedy};
        return {std::make_unique<FakeSpeaker>(name.substr(0, name.find(' ')), Heard, fails), {}, {}};
    }

    std::unique_ptr<Speaker> Choose(const std::string& wanted) {
        SpeakerMakers makers;
        makers.EventDevice = [this](const std::string& path) {
            return Make("device " + path, NoDevice, DeviceRemedy, DeviceFails);
        };
        makers.SoundCard = [this] { return Make("card", NoCard, "", Never); };
        makers.SoundFile = [this](const std::string& path) {
            return Make("file " + path, NoFile, "", Never);
        };
        makers.Silent = [this] { return Make("silent", "", "", Never); };
        return ChooseSpeaker(wanted, makers);
    }
};

/// Returns the speaker in use, the reason for it and the remedy, each followed by a bar.
std::string TextOf(const SpeakerStatus& status) {
    return status.InUse + "|" + status.Reason + "|" + status.Remedy + "|";
}

TEST(SpeakerChoice, PrefersThePcSpeakerAndHasNothingToSayAboutIt) {
    FakeMachine machine;
    EXPECT_EQ(TextOf(machine.Choose("")->Status()), "device|||");
    EXPECT_EQ(machine.AskedFor, "device \n");
}

TEST(SpeakerChoice, TakesTheSoundCardNextAndSaysWhyAndWhatToDo) {
    FakeMachine machine;
    machine.NoDevice = "No driver.";
    machine.DeviceRemedy = "load it";
    EXPECT_EQ(TextOf(machine.Choose("")->Status()), "card|No driver.|load it|");
}

TEST(SpeakerChoice, IsSilentLastAndGivesEveryReason) {
    FakeMachine machine;
    machine.NoDevice = "No driver.";
    machine.DeviceRemedy = "load it";
    machine.NoCard = "No card.";
    EXPECT_EQ(TextOf(machine.Choose("")->Status()), "silent|No driver. No card.|load it|");
}

TEST(SpeakerChoice, ByHandTakesTheNamedSpeakerOrOneAfterIt) {
    const std::pair<const char*, const char*> expected[] = {
        {"evdev", "device \n"},
        {"evdev:/dev/input/event3", "device /dev/input/event3\n"},
        {"soundcard", "card\n"},
        {"silent", "silent\n"},
        {"wav:/tmp/a:b.wav", "file /tmp/a:b.wav\n"},
    };
    for (const auto& [wanted, asked] : expected) {
        FakeMachine machine;
        machine.Choose(wanted);
        EXPECT_EQ(machine.AskedFor, asked) << wanted;
    }
}

TEST(SpeakerChoice, ByHandIsGivenAsTheReasonUnlessItIsThePcSpeaker) {
    FakeMachine machine;
    EXPECT_EQ(machine.Choose("evdev")->Status().Reason, "");
    EXPECT_EQ(machine.Choose("soundcard")->Status().Reason, "Chosen with QUAVIX_SPEAKER=soundcard.");
    EXPECT_EQ(machine.Choose("wav:/a.wav")->Status().Reason, "Chosen with QUAVIX_SPEAKER=wav:/a.wav.");
}

TEST(SpeakerChoice, ThatFailsGoesOnToTheNext) {
    FakeMachine machine;
    machine.NoDevice = "Not a speaker.";
    machine.NoCard = "No card.";
    machine.NoFile = "No space.";
    EXPECT_EQ(machine.Choose("evdev:/dev/null")->Status().Reason, "Not a speaker. No card.");
    const SpeakerStatus card = machine.Choose("soundcard")->Status();
    EXPECT_EQ(card.InUse, "silent");
    EXPECT_EQ(card.Reason, "Chosen with QUAVIX_SPEAKER=soundcard. No card.");
    const SpeakerStatus file = machine.Choose("wav:/a.wav")->Status();
    EXPECT_EQ(file.InUse, "silent");
    EXPECT_THAT(file.Reason, HasSubstr("No space."));
}

TEST(SpeakerChoice, AnUnknownChoiceIsReportedAndCountsAsAutomatic) {
    for (const char* wanted : {"loud", "evdev:", "wav", "wav:", "soundcard:1", "silent:", "EVDEV", ":"}) {
        FakeMachine machine;
        const SpeakerStatus status = machine.Choose(wanted)->Status();
        EXPECT_EQ(status.InUse, "device") << wanted;
        EXPECT_THAT(status.Reason, StartsWith(fmt::format("QUAVIX_SPEAKER={} is not understood", wanted)));
        EXPECT_EQ(machine.AskedFor, "device \n") << wanted;
    }
}

TEST(SpeakerChoice, GivesUpASpeakerThatFailsAfterTheToneAndSaysWhy) {
    FakeMachine machine;
    const auto speaker = machine.Choose("");
    speaker->Beep(440, 100);
    machine.DeviceFails = true;
    speaker->Beep(550, 100);
    speaker->Beep(660, 100);
    EXPECT_EQ(machine.Heard, "device 440 Hz 100 ms\ndevice 550 Hz 100 ms\ncard 660 Hz 100 ms\n");
    EXPECT_EQ(speaker->Status().InUse, "card");
    EXPECT_EQ(speaker->Status().Reason, "The device broke.");
}

TEST(SpeakerChoice, ThatFailsBeforeTheFirstToneIsReplaced) {
    FakeMachine machine;
    machine.DeviceFails = true;
    EXPECT_EQ(machine.Choose("")->Status().InUse, "card");
    machine.NoCard = "No card.";
    const auto speaker = machine.Choose("");
    speaker->Beep(440, 100);
    EXPECT_EQ(machine.Heard, "silent 440 Hz 100 ms\n");
    EXPECT_EQ(speaker->Status().Reason, "The device broke. No card.");
}

TEST(MachineSpeakers, KeepTimeSilentlyAndSaySo) {
    FakeTime time;
    SpeakerChoice choice;
    choice.Wanted = "silent";
    choice.Clock = time.Clock();
    const auto speaker = ChooseSpeaker(choice);
    const std::int64_t start = time.NowNs;
    for (const std::int32_t frequency : {440, 5, 40000})
        speaker->Beep(frequency, 250);
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
