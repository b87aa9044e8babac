// SPDX-License-Identifier: MIT
#include "simulation/simulated_midi.h"

#include <gmock/gmock.h>

namespace quavix {
namespace {

using testing::ElementsAre;

class SimulatedMidi : public testing::Test {
  protected:
    Timeline Events;
    SimulatedTime Time;
    SimulatedMidiOut Out{Time, Events};
    SimulatedMidiIn In{Time, Events};
};

TEST_F(SimulatedMidi, SentMessagesGoToTheTimeline) {
    Out.Devices = {"synthesizer"};
    EXPECT_FALSE(Out.Open(0)) << "not searched for yet";
    EXPECT_EQ(Out.DeviceCount(), 1);
    EXPECT_EQ(Out.DeviceName(-1), "Quavix");
    EXPECT_TRUE(Out.Open(0));
    Time.Block(20);
    EXPECT_EQ(Out.Send({0x90, 60, 96}), MidiSendResult::Sent);
    EXPECT_EQ(Out.Send({0xF0, 60, 96}), MidiSendResult::NoMessage);
    Out.Close();
    EXPECT_EQ(Out.Send({0x90, 60, 96}), MidiSendResult::NotOpen);
    EXPECT_EQ(Events.Text("midi out"),
              "0.0000 midi out does not open 0 \"\"\n"
              "0.0000 midi out opens 0 \"synthesizer\"\n"
              "0.0200 midi out 90 3C 60\n"
              "0.0200 midi out closes\n");
}

TEST_F(SimulatedMidi, ASlowDeviceIsBusyForAWhile) {
    Out.Open(MidiOutPort::VirtualDevice);
    Out.BeSlow(2, 10);
    EXPECT_EQ(Out.Send({0x90, 60, 96}), MidiSendResult::Sent);
    EXPECT_EQ(Out.Send({0x90, 61, 96}), MidiSendResult::Sent);
    EXPECT_EQ(Out.Send({0x90, 62, 96}), MidiSendResult::Busy);
    Time.Block(10);
    EXPECT_EQ(Out.Send({0x90, 62, 96}), MidiSendResult::Sent);
}

TEST_F(SimulatedMidi, MessagesArriveWithTheirHandler) {
    In.Devices = {"keyboard"};
    In.DeviceCount();
    In.Open(0);
    std::vector<MidiMessage> seen;
    In.SetHandler([&] {
        MidiMessage message;
        while (In.Receive(message) == MidiInPort::Received::Message)
            seen.push_back(message);
    });
    In.ArriveAt(10, {{0x90, 60, 1}, {0x90, 64, 1}});
    In.ArriveAt(20, {{0x80, 60, 0}});
    Time.RunUntil(15);
    EXPECT_THAT(seen, ElementsAre(MidiMessage{0x90, 60, 1}, MidiMessage{0x90, 64, 1}));
    In.Close();
    Time.RunUntil(25);
    EXPECT_EQ(seen.size(), 2U) << "nothing arrives where no device is open";
}

TEST_F(SimulatedMidi, ADeviceThatVanishesIsGoneUntilItIsClosedOrOpenedAgain) {
    In.Devices = {"keyboard"};
    In.DeviceCount();
    In.Open(0);
    int told = 0;
    In.SetHandler([&] { ++told; });
    In.VanishAt(5);
    In.ArriveAt(6, {{0x90, 60, 1}});
    Time.RunUntil(10);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(In.State(), MidiDeviceState::Gone);
    EXPECT_TRUE(In.Open(0));
    EXPECT_EQ(In.State(), MidiDeviceState::Open);
}

TEST_F(SimulatedMidi, WithoutItsModuleThereAreNoDevices) {
    Out.Devices = {"synthesizer"};
    Out.LoadProblem = "The file \"midiio32.ocx\" is missing.";
    EXPECT_EQ(Out.Prepare(), Out.LoadProblem);
    EXPECT_EQ(Out.DeviceCount(), 0);
    EXPECT_FALSE(Out.Open(MidiOutPort::VirtualDevice));
}

}  // namespace
}  // namespace quavix
