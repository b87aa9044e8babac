// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>

#include "program/program.h"
#include "program/program_parts.h"
#include "simulation/simulated_ports.h"

namespace quavix::test {

/// The whole program on simulated ports, with its start-up values.
struct SimulatedProgram : SimulatedPorts {
    explicit SimulatedProgram(const SimulatedTime::Origin& start = {}) : SimulatedPorts(start) {
        App.Fields.State.TickFreq = ReadTickFreq(Time, App.Log);
    }
    /// On a machine that outlives the program.
    explicit SimulatedProgram(SimulatedMachine& machine) : SimulatedPorts(machine) {
        App.Fields.State.TickFreq = ReadTickFreq(Time, App.Log);
    }

    /// Replaces the song; each line is "Length Note1 Note2 Mod" with "-" for an empty cell.
    void SetSong(std::initializer_list<const char*> lines);

    /// Opens a MIDI output device for the tones; only what happens afterwards is in the timeline.
    void OpenMidiOut();

    /// The song, a line per row as in a song file; "> " stands before rows with their selected flag set, "* "
    /// before a selected item that has lost it.
    std::string SongText() const;

    /// What the debug log holds, without the times of day.
    std::string LogText() const;

    Program App{All()};
};

}  // namespace quavix::test
