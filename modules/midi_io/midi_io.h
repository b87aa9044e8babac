// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "modules/midi_io/arrivals.h"
#include "modules/midi_io/midi_system.h"
#include "modules/midi_io/rt_device.h"

namespace quavix::midi_io {

/// The implementation of the C interface, call by call. Results are those of midi_io_module.h.
class MidiIo {
  public:
    MidiIo(std::string systemName, std::function<void()> wake);
    ~MidiIo();
    MidiIo(const MidiIo&) = delete;
    MidiIo& operator=(const MidiIo&) = delete;

    std::string SystemName() const { return system_ ? system_->Name() : ""; }
    const std::string& Problem() const { return problem_; }
    void SetProblem(std::string problem) { problem_ = std::move(problem); }

    std::int32_t CountOutputs(std::int32_t& count);
    std::int32_t CountInputs(std::int32_t& count);
    /// The names from the last search.
    const std::vector<std::string>& OutputNames() const { return output_.Names; }
    const std::vector<std::string>& InputNames() const { return input_.Names; }

    std::int32_t OpenOutput(std::int32_t device);
    std::int32_t OpenInput(std::int32_t device);
    std::int32_t CloseOutput();
    std::int32_t CloseInput();
    std::int32_t OutputState();
    std::int32_t InputState();

    std::int32_t Send(const QuavixMidiIoMessage& message);
    std::int32_t Receive(QuavixMidiIoMessage& message) { return arrivals_->Receive(message); }

  private:
    /// One direction. Its names and loss survive a change of the system.
    template <typename Rt>
    struct Direction {
        std::vector<std::string> Names;
        bool Gone = false;
        /// Null while no system is connected.
        std::unique_ptr<RtDevice<Rt>> Device{};

        bool IsOpen() const { return Device && Device->IsOpen(); }
    };

    bool Connect();
    /// Leaves the system. A dead system and everything connected to it are kept until the process ends,
    /// because its library frees the clients itself when any part of the process enters a new server.
    void Disconnect();
    /// Leaves the system if nothing is open: a process that ends while connected may block all other clients,
    /// because a JACK server waits for its clients in each cycle.
    void LeaveIfUnused();
    bool HasNumber(const std::vector<std::string>& names, std::int32_t device);

    template <typename Rt, typename Other>
    std::int32_t Count(Direction<Rt>& direction, const Direction<Other>& other, std::int32_t& count);
    template <typename Rt>
    std::int32_t Open(Direction<Rt>& direction, const std::string& name);
    template <typename Rt>
    void Close(Direction<Rt>& direction);
    template <typename Rt>
    std::int32_t State(Direction<Rt>& direction);

    std::string wanted_;
    std::string problem_;
    std::shared_ptr<Arrivals> arrivals_;
    std::unique_ptr<MidiSystem> system_;
    Direction<RtMidiOut> output_;
    Direction<RtMidiIn> input_;
};

}  // namespace quavix::midi_io
