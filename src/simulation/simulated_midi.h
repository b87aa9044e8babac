// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/midi_devices.h"
#include "ports/midi_file_reader.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// The common part of the simulated directions. Opening and closing go to the timeline.
template <typename Port>
class SimulatedMidiPort : public Port, private Recorder {
  public:
    std::string Prepare() override { return LoadProblem; }
    std::string SystemName() override { return "simulated"; }
    std::int32_t DeviceCount() override;
    std::string DeviceName(std::int32_t device) override;
    bool Open(std::int32_t device) override;
    void Close() override;
    MidiDeviceState State() override { return state_; }
    std::string Problem() override { return OpenProblem; }

    /// Makes the device vanish `ms` milliseconds after the start.
    void VanishAt(double ms);

    /// The devices that a search finds.
    std::vector<std::string> Devices;
    /// Reason why Prepare() fails; empty if it succeeds.
    std::string LoadProblem;
    /// Reason why Open() fails; empty if it succeeds.
    std::string OpenProblem;

  protected:
    SimulatedMidiPort(SimulatedTime& time, Timeline& timeline, std::string name)
        : Recorder(time, timeline), name_(std::move(name)) {}

    using Recorder::time_;
    void Record(const std::string& event) { Recorder::Record(name_ + " " + event); }
    virtual void Vanished() {}

  private:
    std::string name_;
    std::vector<std::string> found_;
    MidiDeviceState state_ = MidiDeviceState::Closed;
};

/// Writes sent messages to the timeline, as "midi out 90 3C 60".
class SimulatedMidiOut : public SimulatedMidiPort<MidiOutPort> {
  public:
    SimulatedMidiOut(SimulatedTime& time, Timeline& timeline)
        : SimulatedMidiPort(time, timeline, "midi out") {}

    MidiSendResult Send(const MidiMessage& message) override;

    /// Accepts this many messages at a time; then the device is busy for `busyMs` milliseconds.
    void BeSlow(int messagesAtATime, std::int64_t busyMs) {
        atATime_ = messagesAtATime;
        busyMs_ = busyMs;
    }

  private:
    int atATime_ = 0;
    std::int64_t busyMs_ = 0;
    int taken_ = 0;
    std::int64_t busyUntil_ = 0;
};

/// MIDI input with scripted messages.
class SimulatedMidiIn : public SimulatedMidiPort<MidiInPort> {
  public:
    SimulatedMidiIn(SimulatedTime& time, Timeline& timeline) : SimulatedMidiPort(time, timeline, "midi in") {}

    void Close() override;
    Received Receive(MidiMessage& message) override;
    void SetHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

    /// Makes messages arrive `ms` milliseconds after the start, all at once, if a device is open then.
    void ArriveAt(double ms, std::vector<MidiMessage> messages);
    /// Makes messages get lost `ms` milliseconds after the start.
    void LoseAt(double ms);

  private:
    void Vanished() override { Notify(); }
    void Notify() {
        if (const auto handler = handler_)
            handler();
    }

    std::function<void()> handler_;
    std::deque<MidiMessage> arrived_;
    bool lost_ = false;
};

/// Returns the content that a test has set, whatever the bytes; or calls a real reader.
class SimulatedMidiFileReader : public MidiFileReader {
  public:
    std::string Prepare() override { return LoadProblem; }

    MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                        MidiFileContent& content, std::string& detail) override {
        if (Real != nullptr)
            return Real->Read(bytes, goOn, content, detail);
        content = {};
        detail = LoadProblem.empty() ? Detail : LoadProblem;
        if (!LoadProblem.empty())
            return MidiFileResult::NoReader;
        for (int step = 1; goOn && step <= Steps; ++step) {
            if (!goOn(static_cast<double>(step) / Steps))
                return MidiFileResult::Stopped;
        }
        if (Result == MidiFileResult::Read)
            content = Content;
        return Result;
    }

    /// Reader to call instead, unless null.
    MidiFileReader* Real = nullptr;
    MidiFileContent Content;
    MidiFileResult Result = MidiFileResult::Read;
    std::string Detail;
    /// Number of progress reports.
    int Steps = 1;
    /// Reason why Prepare() fails; empty if it succeeds.
    std::string LoadProblem;
};

}  // namespace quavix
