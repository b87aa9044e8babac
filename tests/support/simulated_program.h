// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "program/program.h"
#include "program/program_parts.h"
#include "simulation/simulated_ports.h"

namespace quavix::test {

/// The whole program on simulated ports, with its start-up values.
struct SimulatedProgram : SimulatedPorts {
    explicit SimulatedProgram(const SimulatedTime::Origin& start = {}) : SimulatedPorts(start) {
        App.Fields.State.TickFreq = ReadTickFreq(Time, App.Log);
    }
    /// Runs on a machine that outlives the program.
    explicit SimulatedProgram(SimulatedMachine& machine) : SimulatedPorts(machine) {
        App.Fields.State.TickFreq = ReadTickFreq(Time, App.Log);
    }

    /// Replaces the song; each line is "Length Note1 Note2 Mod" with "-" for an empty cell.
    void SetSong(std::initializer_list<const char*> lines);

    void SetTempo(std::int32_t bpm, std::int32_t noteSilenceRatio);

    /// Puts the sound library into the program's folder and starts the program's sound on it; only what
    /// happens afterwards is in the timeline.
    void StartSound();

    /// Installs the MIDI control and attaches the inputs "Keyboard" and "Drum pad".
    void AttachMidiInputs();
    /// Installs the MIDI control and attaches the outputs "Keyboard" and "Synthesizer".
    void AttachMidiOutputs();

    /// Opens a MIDI output device for the tones; only what happens afterwards is in the timeline.
    void OpenMidiOut();

    /// Returns the song, a line per row as in a song file; "> " stands before rows with their selected flag
    /// set, "* " before a selected item that has lost it.
    std::string SongText() const;

    /// Returns the calls of the sound library since the last time, without their times.
    std::string SoundCalls();

    /// Returns the texts of all message boxes so far.
    std::vector<std::string> BoxTexts() const;

    /// Returns the content of the debug log, without the times of day.
    std::string LogText() const;

    ProgramParts Parts{All()};
    Program App{Parts};
};

}  // namespace quavix::test
