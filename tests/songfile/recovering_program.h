// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "songfile/song_files.h"
#include "support/simulated_desktop.h"

namespace quavix::test {

// The first two recovery copies of a machine.
inline const std::string Copy1 = "/state/unsaved-001.QVX";
inline const std::string Copy2 = "/state/unsaved-002.QVX";

using Machine = SimulatedMachine;

/// A program with recovery. The destructor kills the program if it has not ended.
struct RecoveringProgram : SimulatedDesktop {
    using SimulatedDesktop::SimulatedDesktop;

    void Append(const std::string& note) { App.List.Append("Quarter", note, "", ""); }

    /// Returns the notes of the first column, each followed by a blank.
    std::string Notes() const {
        std::string notes;
        for (std::int32_t row = 1; row <= App.List.Count(); ++row)
            notes += std::string(App.List.Text(row, Cell::Note1)) + " ";
        return notes;
    }

    quavix::Recovery& Keeper = Desktop.Recovery;
};

/// Runs a program with a line of this note, and kills it after it has written its copy.
inline void LeaveBehind(Machine& machine, const std::string& note, const std::string& fileName = {}) {
    RecoveringProgram p(machine);
    if (!fileName.empty()) {
        machine.Disk.Put(fileName, Header);
        p.App.Storage.SongDocument.LoadFile(fileName);
    }
    p.Append(note);
    const double now = static_cast<double>(machine.Time.Now()) / SimulatedTime::CountsPerMs;
    machine.Time.RunUntil(now + Recovery::DelayMs);
}

}  // namespace quavix::test
