// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/batch_files.h"
#include "ports/midi_devices.h"
#include "ports/midi_file_reader.h"

namespace quavix {

/// A direction without devices.
template <typename Port>
class AbsentMidiPort : public Port {
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

/// Stands where no MIDI is to be used.
class AbsentMidi {
    class OutPort : public AbsentMidiPort<MidiOutPort> {
      public:
        MidiSendResult Send(const MidiMessage&) override { return MidiSendResult::NotOpen; }
    };

    class InPort : public AbsentMidiPort<MidiInPort> {
      public:
        Received Receive(MidiMessage&) override { return Received::None; }
        void SetHandler(std::function<void()>) override {}
    };

    class FileReader : public MidiFileReader {
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

  public:
    OutPort Out;
    InPort In;
    FileReader Reader;
    NoBatchFiles Batches;
};

}  // namespace quavix
