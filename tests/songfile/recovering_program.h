// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "app/absent_midi.h"
#include "app/program.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_clipboard.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_serial_port.h"
#include "simulation/simulated_speaker.h"
#include "songfile/recovery.h"
#include "songfile/song_files.h"

namespace quavix::test {

// The first two recovery copies of a machine.
inline const std::string Copy1 = "/state/unsaved-001.QVX";
inline const std::string Copy2 = "/state/unsaved-002.QVX";

/// What outlives a program: the time and the disk.
struct Machine {
    SimulatedTime Time;
    SimulatedFiles Disk;
};

/// A program with recovery. Destroyed without End(), it is killed.
class RecoveringProgram {
  public:
    explicit RecoveringProgram(Machine& machine)
        : machine_(machine),
          boxes_(machine.Time, timeline_),
          picker_(machine.Time, timeline_),
          clipboard_(machine.Time, timeline_),
          speaker_(machine.Time, timeline_),
          serialPort_(machine.Time, timeline_),
          library_(machine.Time, timeline_),
          loading_(machine.Time, timeline_),
          program_({
              .Time = machine.Time,
              .Pump = machine.Time,
              .Ticks = machine.Time,
              .Random = random_,
              .Boxes = boxes_,
              .Picker = picker_,
              .TextClipboard = clipboard_,
              .Disk = machine.Disk,
              .PcSpeaker = speaker_,
              .Comm = serialPort_,
              .Sound = library_,
              .MidiOutDevices = absent_.Out,
              .MidiInDevices = absent_.In,
              .MidiFiles = absent_.Reader,
              .Batches = absent_.Batches,
              .Loading = loading_,
              .ProgramFolder = {},
              .WinFolder = {},
              .LogFile = "/program/debuglog.txt",
              .ToneCodeFile = "/program/tonecode.txt",
          }),
          Keeper({program_.Fields, program_.List, program_.Changes, program_.Document, machine.Disk,
                  machine.Time, machine.Time, boxes_, program_.Handlers, program_.Log,
                  [this] { return program_.Tones.IsSounding(); }, "/state"}) {
        program_.Fields.TickFreq = ReadTickFreq(machine.Time, program_.Log);
    }

    void Append(const std::string& note) { program_.List.Append("Quarter", note, "", ""); }

    Program& App() { return program_; }
    SimulatedMessageBoxes& Boxes() { return boxes_; }
    SimulatedFilePicker& Picker() { return picker_; }
    RecordedLoadingView& Loading() { return loading_; }
    std::string LogText() const { return machine_.Disk.Content("/program/debuglog.txt"); }

    /// The notes of the first column.
    std::string Notes() const {
        std::string notes;
        for (std::int32_t row = 1; row <= program_.List.Count(); ++row)
            notes += std::string(program_.List.Text(row, Cell::Note1)) + " ";
        return notes;
    }

  private:
    Machine& machine_;
    quavix::Timeline timeline_;
    SimulatedMessageBoxes boxes_;
    SimulatedFilePicker picker_;
    SimulatedClipboard clipboard_;
    SimulatedSpeaker speaker_;
    SeededRandomNumbers random_{0};
    SimulatedSerialPort serialPort_;
    AbsentMidi absent_;
    RecordedSoundLibrary library_;
    RecordedLoadingView loading_;
    Program program_;

  public:
    Recovery Keeper;
};

/// A program of one line with this note that is killed after its copy was written.
inline void LeaveBehind(Machine& machine, const std::string& note, const std::string& fileName = {}) {
    RecoveringProgram p(machine);
    if (!fileName.empty()) {
        machine.Disk.Put(fileName, Header);
        p.App().Document.LoadFile(fileName);
    }
    p.Append(note);
    const double now = static_cast<double>(machine.Time.Now()) / SimulatedTime::CountsPerMs;
    machine.Time.RunUntil(now + Recovery::DelayMs);
}

}  // namespace quavix::test
