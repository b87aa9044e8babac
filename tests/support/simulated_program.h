// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>

#include "app/program.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_batch_files.h"
#include "simulation/simulated_clipboard.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_midi_devices.h"
#include "simulation/simulated_midi_file_reader.h"
#include "simulation/simulated_serial_port.h"
#include "simulation/simulated_speaker.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix::test {

/// The whole program on simulated ports, with its start-up values.
struct SimulatedProgram {
    explicit SimulatedProgram(const SimulatedTime::Origin& start = {}) : Time(start) {
        App.Fields.TickFreq = ReadTickFreq(Time, App.Log);
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

    quavix::Timeline Timeline;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Timeline};
    SimulatedFilePicker Picker{Time, Timeline};
    SimulatedClipboard Clipboard{Time, Timeline};
    SimulatedFiles Disk;
    SimulatedSpeaker Speaker{Time, Timeline};
    SeededRandomNumbers Random{0};
    SimulatedSerialPort Comm{Time, Timeline};
    RecordedSoundLibrary Library{Time, Timeline};
    SimulatedMidiOut MidiOut{Time, Timeline};
    SimulatedMidiIn MidiIn{Time, Timeline};
    SimulatedMidiFileReader MidiFiles;
    SimulatedBatchFiles Batches{Time, Timeline, Disk};
    RecordedLoadingView Loading{Time, Timeline};
    Program App{{
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
    }};
};

}  // namespace quavix::test
