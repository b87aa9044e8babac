// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <random>
#include <string>

#include "platform/common/module_midi_devices.h"
#include "platform/common/module_midi_file_reader.h"
#include "platform/common/notnormal_fmodex.h"
#include "platform/common/system_clock.h"
#include "platform/common/system_ports.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_file_picker.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_serial_port.h"
#include "program/program_ports.h"
#include "shell/seeded_random_numbers.h"

namespace quavix {

/// The folders and devices of a desktop program.
struct DesktopPlaces {
    std::string ProgramFolder;
    /// Folder for files installed on first use.
    std::string WinFolder;
    /// A serial port that is missing from the system's list; empty for none.
    std::string SerialPort;
    /// MIDI system to use, see ModuleMidiDevices.
    std::string MidiSystem;
};

/// The real ports of the desktop program; made after the toolkit's application.
struct DesktopPorts {
    explicit DesktopPorts(DesktopPlaces places);

    /// Returns the ports of a program. The speaker is made before the application; the loading view is a
    /// window.
    ProgramPorts All(Speaker& speaker, LoadingView& loading);

  private:
    DesktopPlaces places_;

  public:
    SystemClock Time;
    const std::unique_ptr<Files> Disk = MakeFiles();
    QtEventPump Pump;
    QtMessageBoxes Boxes;
    QtFilePicker Picker;
    QtClipboard Clipboard;
    QtTimers Ticks;
    SeededRandomNumbers Random{std::random_device{}()};
    QtSerialPort Comm;
    NOTNORMALfmodex Sound;
    QtHandleWatch HandleWatch;
    // The controls are loaded on first use, after they have been installed.
    ModuleMidiDevices Midi;
    ModuleMidiFileReader MidiFiles;
    const std::unique_ptr<BatchFiles> Batches = MakeBatchFiles();
};

}  // namespace quavix
