// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace quavix {

class BatchFiles;
class Clipboard;
class Clock;
class EventPump;
class FilePicker;
class Files;
class LoadingView;
class MessageBoxes;
class MidiFileReader;
class MidiInPort;
class MidiOutPort;
class RandomNumbers;
class SerialPort;
class SoundLibrary;
class Speaker;
class Timers;

/// The ports and the file locations of a program. All ports must outlive the program. Each can be replaced
/// until the program is made: `ports.Boxes = boxes`.
struct ProgramPorts {
    std::reference_wrapper<Clock> Time;
    std::reference_wrapper<EventPump> Pump;
    std::reference_wrapper<Timers> Ticks;
    std::reference_wrapper<RandomNumbers> Random;
    std::reference_wrapper<MessageBoxes> Boxes;
    std::reference_wrapper<FilePicker> Picker;
    std::reference_wrapper<Clipboard> TextClipboard;
    std::reference_wrapper<Files> Disk;
    std::reference_wrapper<Speaker> PcSpeaker;
    std::reference_wrapper<SerialPort> Comm;
    std::reference_wrapper<SoundLibrary> Sound;
    std::reference_wrapper<MidiOutPort> MidiOutDevices;
    std::reference_wrapper<MidiInPort> MidiInDevices;
    std::reference_wrapper<MidiFileReader> MidiFiles;
    std::reference_wrapper<BatchFiles> Batches;
    std::reference_wrapper<LoadingView> Loading;
    /// Folder of the executable and its files.
    std::string ProgramFolder;
    /// Folder for files installed on first use.
    std::string WinFolder;
    /// Files for the debug log and the tone code, written while these are switched on.
    std::string LogFile;
    std::string ToneCodeFile;
};

}  // namespace quavix
