// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/batch_files.h"
#include "ports/clipboard.h"
#include "ports/file_picker.h"
#include "ports/midi_devices.h"
#include "ports/midi_file_reader.h"
#include "ports/serial_port.h"
#include "program/program_ports.h"
#include "songfile/loading_view.h"

namespace quavix {

/// The optional ports of a program, all absent: they refuse every call, with a reason if asked.
class AbsentPorts {
    class NoFilePicker : public FilePicker {
      public:
        std::string AskForSaveName(const FileDialog&) override { return {}; }
        std::string AskForOpenName(const FileDialog&) override { return {}; }
    };

    class NoClipboard : public quavix::Clipboard {
      public:
        void SetText(const std::string&) override {}
        std::string Text() override { return {}; }
    };

    class NoSerialPort : public SerialPort {
      public:
        std::vector<std::string> Names() override { return {}; }
        std::string Open(const std::string&, const std::string&) override { return "there is none"; }
        void Close() override {}
        void Write(const std::string&) override {}
        void WhenLost(std::function<void(const std::string&)>) override {}
    };

    template <typename Port>
    class NoMidi : public Port {
      public:
        std::string Prepare() override { return Problem(); }
        std::string SystemName() override { return {}; }
        std::int32_t DeviceCount() override { return 0; }
        std::string DeviceName(std::int32_t) override { return {}; }
        bool Open(std::int32_t) override { return false; }
        void Close() override {}
        MidiDeviceState State() override { return MidiDeviceState::Closed; }
        std::string Problem() override { return "There is no MIDI here."; }
    };

    class NoMidiOut : public NoMidi<MidiOutPort> {
      public:
        MidiSendResult Send(const MidiMessage&) override { return MidiSendResult::NotOpen; }
    };

    class NoMidiIn : public NoMidi<MidiInPort> {
      public:
        Received Receive(MidiMessage&) override { return Received::None; }
        void SetHandler(std::function<void()>) override {}
    };

    class NoMidiFileReader : public MidiFileReader {
      public:
        std::string Prepare() override { return "MIDI files can't be read here."; }
        MidiFileResult Read(std::string_view, const std::function<bool(double)>&, MidiFileContent&,
                            std::string& detail) override {
            detail = Prepare();
            return MidiFileResult::NoReader;
        }
    };

    class NoBatchFiles : public BatchFiles {
      public:
        std::string RegisterCommand() override { return {}; }
        std::string Quoted(const std::string& fileName) override { return fileName; }
        std::error_code Start(const std::string&) override {
            return std::make_error_code(std::errc::function_not_supported);
        }
    };

    class NoLoadingView : public LoadingView {
      public:
        void ShowHideInfoText(bool) override {}
        void SetInfoText(const std::string&) override {}
        bool Progress(double) override { return true; }
    };

  public:
    NoFilePicker Picker;
    NoClipboard Clipboard;
    NoSerialPort Comm;
    NoMidiOut MidiOut;
    NoMidiIn MidiIn;
    NoMidiFileReader MidiFiles;
    NoBatchFiles Batches;
    NoLoadingView Loading;

    /// Returns the ports of a program that has only these, without its own folders and files.
    ProgramPorts Beside(Clock& time, EventPump& pump, Timers& ticks, RandomNumbers& random,
                        MessageBoxes& boxes, Files& disk, Speaker& speaker, SoundLibrary& sound) {
        return {
            .Time = time,
            .Pump = pump,
            .Ticks = ticks,
            .Random = random,
            .Boxes = boxes,
            .Picker = Picker,
            .TextClipboard = Clipboard,
            .Disk = disk,
            .PcSpeaker = speaker,
            .Comm = Comm,
            .Sound = sound,
            .MidiOutDevices = MidiOut,
            .MidiInDevices = MidiIn,
            .MidiFiles = MidiFiles,
            .Batches = Batches,
            .Loading = Loading,
            .ProgramFolder = {},
            .WinFolder = {},
            .LogFile = {},
            .ToneCodeFile = {},
        };
    }
};

}  // namespace quavix
