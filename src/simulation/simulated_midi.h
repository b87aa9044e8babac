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

/// What the simulated directions have in common. Opening and closing go to the timeline.
template <typename Port>
class SimulatedMidiPort : public Port {
  public:
    std::string Prepare() override { return LoadProblem; }
    std::string SystemName() override { return "simulated"; }
    std::int32_t DeviceCount() override;
    std::string DeviceName(std::int32_t device) override;
    bool Open(std::int32_t device) override;
    void Close() override;
    MidiDeviceState State() override { return state_; }
    std::string Problem() override { return OpenProblem; }

    /// The devices that a search finds.
    std::vector<std::string> Devices;
    /// Why the port can't be made ready; empty: it can.
    std::string LoadProblem;
    /// Why no device opens; empty: they do.
    std::string OpenProblem;

  protected:
    SimulatedMidiPort(SimulatedTime& time, Timeline& timeline, std::string name)
        : time_(time), timeline_(timeline), name_(std::move(name)) {}

    void Record(const std::string& event) { timeline_.Record(time_.Now(), name_ + " " + event); }
    void SetState(MidiDeviceState state) { state_ = state; }

    SimulatedTime& time_;

  private:
    Timeline& timeline_;
    std::string name_;
    std::vector<std::string> found_;
    MidiDeviceState state_ = MidiDeviceState::Closed;
};

/// Writes what is sent to the timeline, "midi out 90 3C 60".
class SimulatedMidiOut : public SimulatedMidiPort<MidiOutPort> {
  public:
    SimulatedMidiOut(SimulatedTime& time, Timeline& timeline)
        : SimulatedMidiPort(time, timeline, "midi out") {}

    MidiSendResult Send(const MidiMessage& message) override;

    /// So many messages are taken at a time; then the device is busy for `busyMs`.
    void BeSlow(int messagesAtATime, std::int64_t busyMs);

    /// The device is gone `ms` milliseconds after the start.
    void VanishAt(double ms);

  private:
    int atATime_ = 0;
    std::int64_t busyMs_ = 0;
    int taken_ = 0;
    std::int64_t busyUntil_ = 0;
};

/// Messages that a test lets arrive.
class SimulatedMidiIn : public SimulatedMidiPort<MidiInPort> {
  public:
    SimulatedMidiIn(SimulatedTime& time, Timeline& timeline) : SimulatedMidiPort(time, timeline, "midi in") {}

    void Close() override;
    Received Receive(MidiMessage& message) override;
    void SetHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

    /// Messages arrive `ms` milliseconds after the start, in one go, where a device is open then.
    void ArriveAt(double ms, std::vector<MidiMessage> messages);
    /// Messages are lost then.
    void LoseAt(double ms);
    /// The device is gone then.
    void VanishAt(double ms);

  private:
    void Notify() {
        if (const auto handler = handler_)
            handler();
    }

    std::function<void()> handler_;
    std::deque<MidiMessage> arrived_;
    bool lost_ = false;
};

/// Reads what a test has put in it, whatever the bytes; or lets a real reader do it.
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

    /// Reads in the place of this one.
    MidiFileReader* Real = nullptr;
    MidiFileContent Content;
    MidiFileResult Result = MidiFileResult::Read;
    std::string Detail;
    /// How many times progress is told.
    int Steps = 1;
    /// Why the port can't be made ready; empty: it can.
    std::string LoadProblem;
};

}  // namespace quavix
