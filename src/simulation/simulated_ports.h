// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

#include "program/program_ports.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_midi.h"
#include "simulation/simulated_processes.h"
#include "simulation/simulated_serial_port.h"
#include "simulation/simulated_speaker.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// The time and the disk of a simulated machine, which outlive a program.
struct SimulatedMachine {
    explicit SimulatedMachine(const SimulatedTime::Origin& start = {}) : Time(start) {}

    SimulatedTime Time;
    SimulatedFiles Disk;
};

/// The simulated ports of a whole program, with all their events in one timeline.
struct SimulatedPorts {
    /// Makes ports on their own machine, whose time begins at `start`.
    explicit SimulatedPorts(const SimulatedTime::Origin& start = {})
        : SimulatedPorts(std::make_unique<SimulatedMachine>(start)) {}
    /// Makes ports on a machine that outlives them.
    explicit SimulatedPorts(SimulatedMachine& machine) : Time(machine.Time), Disk(machine.Disk) {}

    /// Returns the ports of a program in the folder "/program", with "/windows" for installed files.
    ProgramPorts All() {
        return {
            .Time = Time,
            .Pump = Time,
            .Ticks = Time,
            .Random = Random,
            .Boxes = Boxes,
            .Picker = Picker,
            .TextClipboard = Clipboard,
            .Disk = Disk,
            .PcSpeaker = Speaker,
            .Comm = Comm,
            .Sound = Library,
            .MidiOutDevices = MidiOut,
            .MidiInDevices = MidiIn,
            .MidiFiles = MidiFiles,
            .Batches = Batches,
            .Loading = Loading,
            .ProgramFolder = "/program",
            .WinFolder = "/windows",
            .LogFile = "/program/debuglog.txt",
            .ToneCodeFile = "/program/tonecode.txt",
        };
    }

  private:
    explicit SimulatedPorts(std::unique_ptr<SimulatedMachine> own) : SimulatedPorts(*own) {
        own_ = std::move(own);
    }
    std::unique_ptr<SimulatedMachine> own_;

  public:
    SimulatedTime& Time;
    SimulatedFiles& Disk;
    quavix::Timeline Timeline;
    SimulatedMessageBoxes Boxes{Time, Timeline};
    SimulatedFilePicker Picker{Time, Timeline};
    SimulatedClipboard Clipboard{Time, Timeline};
    SimulatedSpeaker Speaker{Time, Timeline};
    SeededRandomNumbers Random{0};
    SimulatedSerialPort Comm{Time, Timeline};
    RecordedSoundLibrary Library{Time, Timeline};
    SimulatedMidiOut MidiOut{Time, Timeline};
    SimulatedMidiIn MidiIn{Time, Timeline};
    SimulatedMidiFileReader MidiFiles;
    SimulatedBatchFiles Batches{Time, Timeline, Disk};
    RecordedLoadingView Loading{Time, Timeline};
};

}  // namespace quavix
