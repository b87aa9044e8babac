// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "ports/midi_file_reader.h"

namespace quavix {

class DynamicLibrary;

/// Reads MIDI files with the module `fileName` (midifl32.ocx), which is loaded on first use.
class ModuleMidiFileReader : public MidiFileReader {
  public:
    explicit ModuleMidiFileReader(std::string fileName);
    ~ModuleMidiFileReader() override;
    ModuleMidiFileReader(const ModuleMidiFileReader&) = delete;
    ModuleMidiFileReader& operator=(const ModuleMidiFileReader&) = delete;

    std::string Prepare() override;
    MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                        MidiFileContent& content, std::string& detail) override;

  private:
    std::string fileName_;
    std::unique_ptr<DynamicLibrary> module_;
};

}  // namespace quavix
