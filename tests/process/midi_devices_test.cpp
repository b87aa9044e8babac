// SPDX-License-Identifier: MIT
// The MIDI module at a JACK server, loaded as the program loads it.
#include <memory>

#include <gmock/gmock.h>

#include "jack_midi_peer.h"
#include "jack_server.h"
#include "platform/common/module_midi_devices.h"
#include "polled_handles.h"

namespace quavix {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Event = JackMidiPeer::Event;
using Messages = std::vector<MidiMessage>;

class MidiDevices : public testing::Test {
  protected:
    static std::vector<std::string> Names(MidiPort& port) {
        std::vector<std::string> names;
        const std::int32_t count = port.DeviceCount();
        for (std::int32_t device = 0; device < count; ++device)
            names.push_back(port.DeviceName(device));
        return names;
    }

    static bool OpenByName(MidiPort& port, const std::string& name) {
        const std::vector<std::string> names = Names(port);
        const auto found = std::find(names.begin(), names.end(), name);
        const bool opened =
            found != names.end() && port.Open(static_cast<std::int32_t>(found - names.begin()));
        EXPECT_TRUE(opened) << port.Problem();
        return opened;
    }

    /// Returns the messages that the handler takes until there are `count`.
    Messages Receive(std::size_t count) {
        Messages messages;
        const auto take = [&] {
            MidiMessage message;
            while (devices_.In().Receive(message) == MidiInPort::Received::Message)
                messages.push_back(message);
        };
        devices_.In().SetHandler(take);
        take();
        EXPECT_TRUE(handles_.RunUntil([&] { return messages.size() >= count; }));
        devices_.In().SetHandler({});
        return messages;
    }

    /// Waits for a state by the handler alone, as the program does.
    bool InputBecomes(MidiDeviceState state) {
        devices_.In().SetHandler([] {});
        const bool became = handles_.RunUntil([&] { return devices_.In().State() == state; });
        devices_.In().SetHandler({});
        return became;
    }

    JackServer server_;
    PolledHandles handles_;
    ModuleMidiDevices devices_{QUAVIX_MIDI_IO_MODULE, handles_, "jack"};
};

TEST_F(MidiDevices, TheVirtualPortSendsToEveryConnectedProgram) {
    ASSERT_TRUE(server_.Start());
    MidiOutPort& out = devices_.Out();
    EXPECT_EQ(out.State(), MidiDeviceState::Closed);
    EXPECT_EQ(out.Send({0x90, 60, 96}), MidiSendResult::NotOpen);
    ASSERT_EQ(out.Prepare(), "");
    EXPECT_EQ(out.DeviceName(MidiOutPort::VirtualDevice), "Quavix");
    ASSERT_TRUE(out.Open(MidiOutPort::VirtualDevice)) << out.Problem();
    EXPECT_EQ(out.State(), MidiDeviceState::Open);
    EXPECT_EQ(out.SystemName(), "JACK");

    JackMidiPeer peer("synthesizer");
    ASSERT_TRUE(peer.Listen("Quavix:Quavix"));
    EXPECT_EQ(out.Send({0xC3, 5, 0}), MidiSendResult::Sent);
    EXPECT_EQ(out.Send({0x93, 60, 96}), MidiSendResult::Sent);
    EXPECT_EQ(out.Send({0x83, 60, 0}), MidiSendResult::Sent);
    EXPECT_THAT(peer.Received(3), ElementsAre(Event{0xC3, 5}, Event{0x93, 60, 96}, Event{0x83, 60, 0}));

    EXPECT_EQ(out.Send({0xF0, 60, 96}), MidiSendResult::NoMessage);
    EXPECT_EQ(out.Send({0x90, 131, 96}), MidiSendResult::NoMessage);
    out.Close();
    EXPECT_EQ(out.State(), MidiDeviceState::Closed);
}

TEST_F(MidiDevices, DevicesAreFoundByEverySearchAndOpenedByTheirNumber) {
    ASSERT_TRUE(server_.Start());
    EXPECT_THAT(Names(devices_.Out()), Not(Contains("synthesizer:in")));
    const JackMidiPeer other("other");
    JackMidiPeer peer("synthesizer");
    EXPECT_THAT(Names(devices_.Out()), Contains("synthesizer:in"));
    EXPECT_THAT(Names(devices_.In()), Contains("synthesizer:out"));
    EXPECT_FALSE(devices_.Out().Open(100));
    EXPECT_FALSE(devices_.In().Open(-1));
    EXPECT_EQ(devices_.In().Problem(), "There is no device with that number.");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    EXPECT_EQ(devices_.Out().Send({0x90, 60, 96}), MidiSendResult::Sent);
    EXPECT_THAT(peer.Received(1), ElementsAre(Event{0x90, 60, 96}));
}

TEST_F(MidiDevices, TheProgramsOwnPortsAreNotListed) {
    ASSERT_TRUE(server_.Start());
    const JackMidiPeer peer("keyboard");
    ASSERT_TRUE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    EXPECT_THAT(Names(devices_.In()), Not(Contains(HasSubstr("Quavix"))));
    EXPECT_THAT(Names(devices_.Out()), Not(Contains(HasSubstr("Quavix"))));

    // Another copy of the program is a device.
    ModuleMidiDevices copy{QUAVIX_MIDI_IO_MODULE, handles_, "jack"};
    EXPECT_THAT(Names(copy.In()), Contains("Quavix:Quavix"));
}

TEST_F(MidiDevices, NoMessageIsLostHoweverManyAreSentAtOnce) {
    constexpr std::size_t Count = 8192;
    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("synthesizer");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    std::size_t busy = 0;
    std::vector<Event> sent;
    while (sent.size() < Count) {
        const auto channel = static_cast<std::uint8_t>(sent.size() / 128 % 16);
        const auto note = static_cast<std::uint8_t>(sent.size() % 128);
        const MidiMessage message{static_cast<std::uint8_t>(0x80 | channel), note, 0};
        const MidiSendResult result = devices_.Out().Send(message);
        if (result == MidiSendResult::Sent) {
            sent.push_back({message.Status, note, 0});
            continue;
        }
        ASSERT_EQ(result, MidiSendResult::Busy);
        ++busy;
        ASSERT_GE(peer.Received(sent.size()).size(), sent.size());
    }
    EXPECT_EQ(peer.Received(Count), sent);
    EXPECT_GT(busy, 0U) << "so many are more than are taken at once";
}

TEST_F(MidiDevices, MessagesSentBeforeClosingGoOut) {
    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("synthesizer");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    for (std::uint8_t note = 0; note < 128; ++note)
        devices_.Out().Send({0x80, note, 0});
    devices_.Out().Close();
    EXPECT_EQ(peer.Received(128).size(), 128U);
}

TEST_F(MidiDevices, PlayedChordsArrive) {
    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("keyboard");
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Open);
    Messages expected;
    for (int chord = 0; chord < 50; ++chord) {
        std::vector<Event> events;
        Messages played;
        for (std::uint8_t note = 0; note < 10; ++note) {
            const auto key = static_cast<std::uint8_t>(chord + 5 * note);
            const auto velocity = static_cast<std::uint8_t>(chord % 2 * 80);
            events.push_back({0x91, key, velocity});
            played.push_back({0x91, key, velocity});
        }
        peer.Send(events);
        EXPECT_EQ(Receive(played.size()), played) << chord;
    }
    EXPECT_EQ(handles_.Count(), 0U);
}

TEST_F(MidiDevices, ClockSensingAndExclusiveMessagesInTheStreamDoNoHarm) {
    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("keyboard");
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    peer.Send({{0xF8},
               {0x90, 60, 1},
               {0xFE},
               {0xF0, 0x7E, 0x7F, 0xF7},
               {0x90, 61, 2},
               {0xF0, 1, 2},
               {0xF8},
               {3, 0xF7},
               {0xC0, 7},
               {0x90, 62, 3},
               {63, 4},
               {0xFA},
               {0xF2, 1, 2},
               {0x80, 60, 0}});
    EXPECT_THAT(Receive(6),
                ElementsAre(MidiMessage{0x90, 60, 1}, MidiMessage{0x90, 61, 2}, MidiMessage{0xC0, 7, 0},
                            MidiMessage{0x90, 62, 3}, MidiMessage{0x90, 63, 4}, MidiMessage{0x80, 60, 0}));
}

TEST_F(MidiDevices, UntakenMessagesAreLostAndTheLossIsReported) {
    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("keyboard");
    JackMidiPeer witness("witness");
    ASSERT_TRUE(witness.Listen("keyboard:out"));
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    constexpr std::size_t Count = 20000;
    peer.Send(std::vector<Event>(Count, Event{0x90, 60, 1}));
    ASSERT_EQ(witness.Received(Count).size(), Count);
    MidiMessage message;
    EXPECT_EQ(devices_.In().Receive(message), MidiInPort::Received::Lost);
    EXPECT_EQ(devices_.In().Receive(message), MidiInPort::Received::Message);
}

TEST_F(MidiDevices, AnOutputThatVanishesIsGoneUntilItIsOpenedAgain) {
    ASSERT_TRUE(server_.Start());
    auto peer = std::make_unique<JackMidiPeer>("synthesizer");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    peer.reset();
    devices_.In().SetHandler([] {});
    EXPECT_TRUE(handles_.RunUntil([&] { return devices_.Out().State() == MidiDeviceState::Gone; }));
    devices_.In().SetHandler({});
    EXPECT_EQ(devices_.Out().Send({0x90, 60, 96}), MidiSendResult::NotOpen);
    EXPECT_THAT(devices_.Out().Problem(), HasSubstr("gone"));
    EXPECT_FALSE(devices_.Out().Open(0)) << "it is not there";
    EXPECT_THAT(devices_.Out().Problem(), HasSubstr("synthesizer:in"));

    peer = std::make_unique<JackMidiPeer>("synthesizer");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Open);
    EXPECT_EQ(devices_.Out().Send({0x90, 60, 96}), MidiSendResult::Sent);
    EXPECT_THAT(peer->Received(1), ElementsAre(Event{0x90, 60, 96}));
}

TEST_F(MidiDevices, AnInputThatVanishesSaysSoAndCanBeOpenedAgain) {
    ASSERT_TRUE(server_.Start());
    auto peer = std::make_unique<JackMidiPeer>("keyboard");
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    peer->Send({{0x90, 60, 1}});
    EXPECT_EQ(Receive(1).size(), 1U);
    peer.reset();
    EXPECT_TRUE(InputBecomes(MidiDeviceState::Gone));
    EXPECT_THAT(Names(devices_.In()), Not(Contains("keyboard:out")));

    // Back again under the same name, it is still another one.
    peer = std::make_unique<JackMidiPeer>("keyboard");
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Gone);
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    peer->Send({{0x90, 61, 1}});
    EXPECT_THAT(Receive(1), ElementsAre(MidiMessage{0x90, 61, 1}));
}

TEST_F(MidiDevices, OtherPortsThatVanishChangeNothing) {
    ASSERT_TRUE(server_.Start());
    const JackMidiPeer peer("synthesizer");
    auto other = std::make_unique<JackMidiPeer>("other");
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    bool told = false;
    devices_.In().SetHandler([&] { told = true; });
    other.reset();
    EXPECT_TRUE(handles_.RunUntil([&] { return told; }));
    devices_.In().SetHandler({});
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Open);
}

TEST_F(MidiDevices, DevicesVanishWithADeadServerAndThoseOfANewOneAreFound) {
    ASSERT_TRUE(server_.Start());
    auto oldPeer = std::make_unique<JackMidiPeer>("keyboard");
    ASSERT_TRUE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    server_.Kill();
    EXPECT_TRUE(InputBecomes(MidiDeviceState::Gone));
    KeepUntilExit(std::move(oldPeer));
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Gone);
    EXPECT_EQ(devices_.Out().Send({0x90, 60, 96}), MidiSendResult::NotOpen);
    EXPECT_EQ(devices_.Out().DeviceCount(), 0);
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Gone) << "until it is closed";
    EXPECT_FALSE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    EXPECT_EQ(devices_.Out().Problem(), "The JACK server does not run.");
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Closed);
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Gone);

    ASSERT_TRUE(server_.Start());
    JackMidiPeer peer("keyboard");
    ASSERT_TRUE(OpenByName(devices_.In(), "keyboard:out"));
    ASSERT_TRUE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    peer.Send({{0x90, 61, 1}});
    EXPECT_THAT(Receive(1), ElementsAre(MidiMessage{0x90, 61, 1}));
}

/// A server that is killed while other parts of the process, such as the sound card's stream, look for a new
/// one.
class MidiDevicesOfADeadServer : public MidiDevices {
  protected:
    void SetUp() override {
        ASSERT_TRUE(server_.Start());
        peer_ = std::make_unique<JackMidiPeer>("synthesizer");
    }

    /// Opening another client frees those of a dead server in the whole process.
    void KillServer() {
        server_.Kill();
        AwaitEnd(devices_);
        KeepUntilExit(std::move(peer_));
        if (jack_client_t* client = jack_client_open("another", JackNoStartServer, nullptr))
            jack_client_close(client);
    }

    void AwaitEnd(ModuleMidiDevices& devices) {
        devices.In().SetHandler([] {});
        EXPECT_TRUE(handles_.RunUntil([&] {
            return devices.In().State() != MidiDeviceState::Open &&
                   devices.Out().State() != MidiDeviceState::Open;
        }));
        devices.In().SetHandler({});
    }

    MidiSendResult Send() { return devices_.Out().Send({0x90, 60, 96}); }

    /// Sends messages one by one until the peer has received `count`. A message may be lost only if the
    /// server was disturbed after it was sent.
    void SendUntilReceived(std::size_t count) {
        constexpr int MostLost = 20;
        int lost = 0;
        for (std::size_t received = 0; received < count;) {
            const int disturbances = peer_->Disturbances();
            ASSERT_EQ(Send(), MidiSendResult::Sent);
            const std::size_t now = peer_->ReceivedSoFar().size();
            if (now == received) {
                ASSERT_GT(peer_->Disturbances(), disturbances) << "lost without a disturbance";
                ASSERT_LE(++lost, MostLost);
            }
            received = now;
        }
    }

    void ExpectANewServerToBeUsed() {
        ASSERT_TRUE(server_.Start());
        peer_ = std::make_unique<JackMidiPeer>("synthesizer");
        ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
        ASSERT_TRUE(OpenByName(devices_.In(), "synthesizer:out"));
        ASSERT_NO_FATAL_FAILURE(SendUntilReceived(1));
        EXPECT_EQ(peer_->ReceivedSoFar().front(), (Event{0x90, 60, 96}));
        peer_->Send({{0x90, 61, 1}});
        EXPECT_THAT(Receive(1), ElementsAre(MidiMessage{0x90, 61, 1}));
    }

    std::unique_ptr<JackMidiPeer> peer_;
};

TEST_F(MidiDevicesOfADeadServer, AnOutputThatPlaysIsGoneAndCanBeClosed) {
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    ASSERT_NO_FATAL_FAILURE(SendUntilReceived(10));
    ASSERT_EQ(Send(), MidiSendResult::Sent);
    KillServer();
    EXPECT_EQ(Send(), MidiSendResult::NotOpen);
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Gone);
    devices_.Out().Close();
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Closed);
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevicesOfADeadServer, AnIdleOutputCanBeClosed) {
    ASSERT_TRUE(devices_.Out().Open(MidiOutPort::VirtualDevice)) << devices_.Out().Problem();
    KillServer();
    devices_.Out().Close();
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Closed);
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevicesOfADeadServer, AnInputIsGoneAndCanBeClosed) {
    ASSERT_TRUE(OpenByName(devices_.In(), "synthesizer:out"));
    KillServer();
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Gone);
    devices_.In().Close();
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Closed);
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevicesOfADeadServer, BothDirectionsAreOpenedAgainWithoutHavingBeenClosed) {
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    ASSERT_TRUE(OpenByName(devices_.In(), "synthesizer:out"));
    KillServer();
    EXPECT_EQ(devices_.Out().DeviceCount(), 0);
    EXPECT_FALSE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Gone);
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevicesOfADeadServer, AnOutputWhoseServerStoppedFirstIsGoneAndCanBeClosed) {
    ASSERT_TRUE(OpenByName(devices_.Out(), "synthesizer:in"));
    ASSERT_TRUE(OpenByName(devices_.In(), "synthesizer:out"));
    server_.Stop();
    while (Send() == MidiSendResult::Sent) {
    }
    EXPECT_EQ(Send(), MidiSendResult::Busy) << "nothing leaves any more";
    KillServer();
    EXPECT_EQ(Send(), MidiSendResult::NotOpen);
    EXPECT_EQ(devices_.Out().State(), MidiDeviceState::Gone);
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Gone);
    devices_.Out().Close();
    devices_.In().Close();
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevicesOfADeadServer, TheProgramCanEndWithBothDirectionsOpen) {
    {
        ModuleMidiDevices devices(QUAVIX_MIDI_IO_MODULE, handles_, "jack");
        ASSERT_TRUE(devices.Out().Open(MidiOutPort::VirtualDevice)) << devices.Out().Problem();
        ASSERT_TRUE(OpenByName(devices.In(), "synthesizer:out"));
        server_.Kill();
        AwaitEnd(devices);
        KillServer();
    }
    ExpectANewServerToBeUsed();
}

TEST_F(MidiDevices, WithoutAServerThereAreNoDevices) {
    EXPECT_EQ(devices_.Out().DeviceCount(), 0);
    EXPECT_EQ(devices_.In().DeviceCount(), 0);
    EXPECT_EQ(devices_.In().Problem(), "The JACK server does not run.");
    EXPECT_EQ(devices_.In().SystemName(), "");
    EXPECT_FALSE(devices_.Out().Open(MidiOutPort::VirtualDevice));
    MidiMessage message;
    EXPECT_EQ(devices_.In().Receive(message), MidiInPort::Received::None);
    devices_.In().Close();
    EXPECT_EQ(devices_.In().State(), MidiDeviceState::Closed);
}

}  // namespace
}  // namespace quavix
