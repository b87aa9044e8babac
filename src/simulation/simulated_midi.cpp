// SPDX-License-Identifier: MIT
#include "simulation/simulated_midi.h"

#include <utility>

#include <fmt/format.h>

namespace quavix {

template <typename Port>
std::int32_t SimulatedMidiPort<Port>::DeviceCount() {
    found_ = LoadProblem.empty() ? Devices : std::vector<std::string>();
    return static_cast<std::int32_t>(found_.size());
}

template <typename Port>
std::string SimulatedMidiPort<Port>::DeviceName(std::int32_t device) {
    if (device >= 0 && static_cast<std::size_t>(device) < found_.size())
        return found_[static_cast<std::size_t>(device)];
    const bool isVirtual = std::is_same_v<Port, MidiOutPort> && device == MidiOutPort::VirtualDevice;
    return isVirtual && LoadProblem.empty() ? "Quavix" : "";
}

template <typename Port>
bool SimulatedMidiPort<Port>::Open(std::int32_t device) {
    const std::string name = DeviceName(device);
    Close();
    if (name.empty() || !OpenProblem.empty()) {
        Record(fmt::format("does not open {} \"{}\"", device, name));
        return false;
    }
    Record(fmt::format("opens {} \"{}\"", device, name));
    state_ = MidiDeviceState::Open;
    return true;
}

template <typename Port>
void SimulatedMidiPort<Port>::Close() {
    if (state_ != MidiDeviceState::Closed)
        Record("closes");
    state_ = MidiDeviceState::Closed;
}

template <typename Port>
void SimulatedMidiPort<Port>::VanishAt(double ms) {
    time_.At(ms, [this] {
        if (state_ != MidiDeviceState::Open)
            return;
        Record("vanishes");
        state_ = MidiDeviceState::Gone;
        Vanished();
    });
}

template class SimulatedMidiPort<MidiOutPort>;
template class SimulatedMidiPort<MidiInPort>;

MidiSendResult SimulatedMidiOut::Send(const MidiMessage& message) {
    constexpr int StatusBit = 0x80;
    if (message.Status < StatusBit || message.Status >= 0xF0 || message.Data1 >= StatusBit ||
        message.Data2 >= StatusBit)
        return MidiSendResult::NoMessage;
    if (State() != MidiDeviceState::Open)
        return MidiSendResult::NotOpen;
    if (time_.Now() < busyUntil_)
        return MidiSendResult::Busy;
    if (atATime_ > 0 && ++taken_ == atATime_) {
        taken_ = 0;
        busyUntil_ = time_.Now() + busyMs_ * SimulatedTime::CountsPerMs;
    }
    Record(fmt::format("{:02X} {:02X} {:02X}", message.Status, message.Data1, message.Data2));
    return MidiSendResult::Sent;
}

void SimulatedMidiIn::Close() {
    SimulatedMidiPort::Close();
    arrived_.clear();
    lost_ = false;
}

MidiInPort::Received SimulatedMidiIn::Receive(MidiMessage& message) {
    if (std::exchange(lost_, false))
        return Received::Lost;
    if (arrived_.empty())
        return Received::None;
    message = arrived_.front();
    arrived_.pop_front();
    return Received::Message;
}

void SimulatedMidiIn::ArriveAt(double ms, std::vector<MidiMessage> messages) {
    time_.At(ms, [this, arriving = std::move(messages)] {
        if (State() != MidiDeviceState::Open)
            return;
        arrived_.insert(arrived_.end(), arriving.begin(), arriving.end());
        Notify();
    });
}

void SimulatedMidiIn::LoseAt(double ms) {
    time_.At(ms, [this] {
        lost_ = State() == MidiDeviceState::Open;
        if (lost_)
            Notify();
    });
}

}  // namespace quavix
