// SPDX-License-Identifier: MIT
#include "app/desktop_ports.h"

#include <utility>

#include "shell/file_access.h"

namespace quavix {
namespace {

std::string ControlFile(const DesktopPlaces& places, const char* name) {
    return FileInFolder(FileInFolder(places.WinFolder, "system32"), name);
}

}  // namespace

DesktopPorts::DesktopPorts(DesktopPlaces places)
    : places_(std::move(places)),
      Comm(places_.SerialPort),
      Midi(ControlFile(places_, "midiio32.ocx"), HandleWatch, places_.MidiSystem),
      MidiFiles(ControlFile(places_, "midifl32.ocx")) {}

ProgramPorts DesktopPorts::All(Speaker& speaker, LoadingView& loading) {
    return {
        .Time = Time,
        .Pump = Pump,
        .Ticks = Ticks,
        .Random = Random,
        .Boxes = Boxes,
        .Picker = Picker,
        .TextClipboard = Clipboard,
        .Disk = *Disk,
        .PcSpeaker = speaker,
        .Comm = Comm,
        .Sound = Sound,
        .MidiOutDevices = Midi.Out(),
        .MidiInDevices = Midi.In(),
        .MidiFiles = MidiFiles,
        .Batches = *Batches,
        .Loading = loading,
        .ProgramFolder = places_.ProgramFolder,
        .WinFolder = places_.WinFolder,
        .LogFile = FileInFolder(places_.ProgramFolder, "debuglog.txt"),
        .ToneCodeFile = FileInFolder(places_.ProgramFolder, "tonecode.txt"),
    };
}

}  // namespace quavix
