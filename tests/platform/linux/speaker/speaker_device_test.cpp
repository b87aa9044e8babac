// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_device.h"

#include <cerrno>
#include <fcntl.h>
#include <map>

#include <gtest/gtest.h>

namespace quavix {
namespace {

const InputDeviceFacts PcSpeaker{true, "PC Speaker", "isa0061/input0", true};
const InputDeviceFacts Keyboard{true, "AT Translated Set 2 keyboard", "isa0060/serio0/input0", false};

class FakeInputDevices : public InputDevices {
  public:
    struct Node {
        InputDeviceFacts Seen;
        int OpenError = 0;
        InputDeviceFacts Asked;
    };

    void Add(const std::string& path, const InputDeviceFacts& facts, int openError = 0) {
        nodes_[path] = {facts, openError, facts};
        paths_.push_back(path);
    }
    Node& At(const std::string& path) { return nodes_[path]; }

    std::vector<std::string> Candidates() const override { return paths_; }
    InputDeviceFacts LookAt(const std::string& path) const override {
        return nodes_.contains(path) ? nodes_.at(path).Seen : InputDeviceFacts{};
    }
    FileDescriptor Open(const std::string& path, int& error) const override {
        Opened.push_back(path);
        error = nodes_.at(path).OpenError;
        return error == 0 ? FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC)) : FileDescriptor();
    }
    InputDeviceFacts Ask(const FileDescriptor&) const override { return nodes_.at(Opened.back()).Asked; }

    mutable std::vector<std::string> Opened;

  private:
    std::map<std::string, Node> nodes_;
    std::vector<std::string> paths_;
};

TEST(PcSpeakerDevice, NeedsEveryPartOfItsIdentity) {
    EXPECT_TRUE(IsPcSpeaker(PcSpeaker));
    InputDeviceFacts facts = PcSpeaker;
    facts.IsInputDevice = false;
    EXPECT_FALSE(IsPcSpeaker(facts));
    facts = PcSpeaker;
    facts.Name = "PC Speaker 2";
    EXPECT_FALSE(IsPcSpeaker(facts));
    facts = PcSpeaker;
    facts.PhysicalPath = "usb-0000:00:14.0-1/input0";
    EXPECT_FALSE(IsPcSpeaker(facts));
    facts = PcSpeaker;
    facts.HasTones = false;
    EXPECT_FALSE(IsPcSpeaker(facts));
}

TEST(PcSpeakerDevice, IsFoundByNameWithoutOpeningAnythingElse) {
    FakeInputDevices devices;
    devices.Add("/dev/input/event0", Keyboard);
    devices.Add("/dev/input/event7", PcSpeaker);
    const FoundDevice found = FindPcSpeaker(devices);
    EXPECT_EQ(found.Problem, DeviceProblem::None);
    EXPECT_TRUE(found.Device);
    EXPECT_EQ(found.Path, "/dev/input/event7");
    EXPECT_EQ(devices.Opened, std::vector<std::string>{"/dev/input/event7"});
}

TEST(PcSpeakerDevice, TheFirstCandidateThatIsASpeakerIsTaken) {
    FakeInputDevices devices;
    devices.Add("/link", PcSpeaker);
    devices.Add("/dev/input/event7", PcSpeaker);
    EXPECT_EQ(FindPcSpeaker(devices).Path, "/link");
}

TEST(PcSpeakerDevice, IsNotThereWithoutCandidates) {
    FakeInputDevices devices;
    devices.Add("/dev/input/event0", Keyboard);
    const FoundDevice found = FindPcSpeaker(devices);
    EXPECT_EQ(found.Problem, DeviceProblem::NotThere);
    EXPECT_FALSE(found.Device);
    EXPECT_TRUE(devices.Opened.empty());
}

TEST(PcSpeakerDevice, WithoutPermissionAsksTheUserToGetIt) {
    for (const int error : {EACCES, EPERM}) {
        FakeInputDevices devices;
        devices.Add("/link", PcSpeaker, error);
        const FoundDevice found = FindPcSpeaker(devices);
        EXPECT_EQ(found.Problem, DeviceProblem::NoPermission);
        EXPECT_EQ(found.Path, "/link");
    }
}

TEST(PcSpeakerDevice, ThatFailsToOpenKeepsTheError) {
    FakeInputDevices devices;
    devices.Add("/link", PcSpeaker, ENODEV);
    const FoundDevice found = FindPcSpeaker(devices);
    EXPECT_EQ(found.Problem, DeviceProblem::CannotOpen);
    EXPECT_EQ(found.Error, ENODEV);
}

TEST(PcSpeakerDevice, AnOpenedDeviceThatIsNoSpeakerIsClosed) {
    FakeInputDevices devices;
    devices.Add("/link", PcSpeaker);
    devices.At("/link").Asked = Keyboard;
    const FoundDevice found = FindPcSpeaker(devices);
    EXPECT_EQ(found.Problem, DeviceProblem::NotASpeaker);
    EXPECT_FALSE(found.Device);
}

TEST(PcSpeakerDevice, ChosenByPathMustBeOneToo) {
    FakeInputDevices devices;
    devices.Add("/dev/input/event0", Keyboard);
    devices.Add("/dev/input/event7", PcSpeaker);
    EXPECT_EQ(FindPcSpeaker(devices, "/dev/input/event0").Problem, DeviceProblem::NotASpeaker);
    EXPECT_EQ(FindPcSpeaker(devices, "/etc/passwd").Problem, DeviceProblem::NotASpeaker);
    EXPECT_TRUE(devices.Opened.empty());
    EXPECT_EQ(FindPcSpeaker(devices, "/dev/input/event7").Problem, DeviceProblem::None);
}

}  // namespace
}  // namespace quavix
