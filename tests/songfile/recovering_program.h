// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "program/common_parts.h"
#include "program/outputs.h"
#include "program/playing.h"
#include "program/program.h"
#include "program/song_editing.h"
#include "program/song_storage.h"
#include "simulation/simulated_ports.h"
#include "songfile/recovery.h"
#include "songfile/song_files.h"

namespace quavix::test {

// The first two recovery copies of a machine.
inline const std::string Copy1 = "/state/unsaved-001.QVX";
inline const std::string Copy2 = "/state/unsaved-002.QVX";

using Machine = SimulatedMachine;

/// A program with recovery. Destroyed without End(), it is killed.
class RecoveringProgram {
  public:
    explicit RecoveringProgram(Machine& machine)
        : ports_(machine),
          program_(ports_.All()),
          Keeper({program_.Fields, program_.List, program_.Storage.SongChanges, program_.Storage.SongDocument,
                  ports_.Disk, ports_.Time, ports_.Time, ports_.Boxes, program_.Handlers, program_.Log,
                  [this] { return program_.IsSounding(); }, "/state"}) {
        program_.Fields.TickFreq = ReadTickFreq(ports_.Time, program_.Log);
    }

    void Append(const std::string& note) { program_.List.Append("Quarter", note, "", ""); }

    Program& App() { return program_; }
    SimulatedMessageBoxes& Boxes() { return ports_.Boxes; }
    SimulatedFilePicker& Picker() { return ports_.Picker; }
    RecordedLoadingView& Loading() { return ports_.Loading; }
    std::string LogText() const { return ports_.Disk.Content("/program/debuglog.txt"); }

    /// The notes of the first column.
    std::string Notes() const {
        std::string notes;
        for (std::int32_t row = 1; row <= program_.List.Count(); ++row)
            notes += std::string(program_.List.Text(row, Cell::Note1)) + " ";
        return notes;
    }

  private:
    SimulatedPorts ports_;
    Program program_;

  public:
    Recovery Keeper;
};

/// A program of one line with this note that is killed after its copy was written.
inline void LeaveBehind(Machine& machine, const std::string& note, const std::string& fileName = {}) {
    RecoveringProgram p(machine);
    if (!fileName.empty()) {
        machine.Disk.Put(fileName, Header);
        p.App().Storage.SongDocument.LoadFile(fileName);
    }
    p.Append(note);
    const double now = static_cast<double>(machine.Time.Now()) / SimulatedTime::CountsPerMs;
    machine.Time.RunUntil(now + Recovery::DelayMs);
}

}  // namespace quavix::test
