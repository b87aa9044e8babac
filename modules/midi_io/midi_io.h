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

/// What stands behind the C interface, call by call. Results are those of midi_io_module.h.
class MidiIo {
  public:
    MidiIo(std::string systemName, std::function<void()> wake);
    ~MidiIo();
    MidiIo(const MidiIo&) = delete;
    MidiIo& operator=(const MidiIo&) = delete;

    std::string SystemName() const { return system_ ? system_->Name() : ""; }
    const std::string& Problem() const { return problem_; }
    void SetProblem(std::string problem) { problem_ = std::move(problem); }

    std::int32_t SearchOutputs();
    std::int32_t SearchInputs();
    /// As the last search has found them.
    const std::vector<std::string>& OutputNames() const { return output_.Names; }
    const std::vector<std::string>& InputNames() const { return input_.Names; }

    std::int32_t OpenOutput(std::int32_t device);
    std::int32_t OpenInput(std::int32_t device);
    void CloseOutput();
    void CloseInput();
    std::int32_t OutputState();
    std::int32_t InputState();

    std::int32_t Send(const QuavixMidiIoMessage& message);
    std::int32_t Receive(QuavixMidiIoMessage& message);

  private:
    /// The directions of the system that is connected to.
    struct Devices {
        RtDevice<RtMidiOut> Output;
        RtDevice<RtMidiIn> Input;
    };

    /// What is known of a direction, whichever system that was.
    struct Direction {
        std::vector<std::string> Names;
        bool Gone = false;
    };

    bool Connect();
    /// Leaves the system. One that has died is kept to the end of the process with all that was connected to
    /// it: its library frees the clients by itself when any part of the process enters a new server.
    void Disconnect();
    void CloseInputDevice();
    /// A system is left when nothing is open: a process that ends while it is in one may hold up all others
    /// there, as a JACK server waits for its clients in each cycle.
    void LeaveIfUnused();
    bool HasNumber(const Direction& direction, std::int32_t device);

    template <typename Device, typename Other>
    std::int32_t Search(Device Devices::*device, Other Devices::*other, Direction& direction);
    template <typename Device>
    std::int32_t Open(Device Devices::*device, Direction& direction, const std::string& name);
    template <typename Device>
    std::int32_t State(Device Devices::*device, Direction& direction);

    std::string wanted_;
    std::string problem_;
    std::shared_ptr<Arrivals> arrivals_;
    Direction output_;
    Direction input_;
    std::unique_ptr<MidiSystem> system_;
    std::unique_ptr<Devices> devices_;
};

}  // namespace quavix::midi_io
