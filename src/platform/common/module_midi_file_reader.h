// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/common/dynamic_library.h"
#include "ports/midi_file_reader.h"

namespace quavix {

/// Reads MIDI files with the module `fileName` (midifl32.ocx), which is loaded on first use.
class ModuleMidiFileReader : public MidiFileReader {
  public:
    explicit ModuleMidiFileReader(std::string fileName);

    std::string Prepare() override;
    MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                        MidiFileContent& content, std::string& detail) override;

  private:
    std::string fileName_;
    std::unique_ptr<DynamicLibrary> module_;
};

}  // namespace quavix
