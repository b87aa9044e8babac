// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "ports/midi_file_reader.h"

namespace quavix {

/// Reads what a test has put in it, whatever the bytes; or lets a real reader do it.
class SimulatedMidiFileReader : public MidiFileReader {
  public:
    std::string Prepare() override { return LoadProblem; }

    MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                        MidiFileContent& content, std::string& detail) override {
        if (Real != nullptr)
            return Real->Read(bytes, goOn, content, detail);
        content = {};
        detail = LoadProblem.empty() ? Detail : LoadProblem;
        if (!LoadProblem.empty())
            return MidiFileResult::NoReader;
        for (int step = 1; goOn && step <= Steps; ++step) {
            if (!goOn(static_cast<double>(step) / Steps))
                return MidiFileResult::Stopped;
        }
        if (Result == MidiFileResult::Read)
            content = Content;
        return Result;
    }

    /// Reads in the place of this one.
    MidiFileReader* Real = nullptr;
    MidiFileContent Content;
    MidiFileResult Result = MidiFileResult::Read;
    std::string Detail;
    /// How many times progress is told.
    int Steps = 1;
    /// Why the port can't be made ready; empty: it can.
    std::string LoadProblem;
};

}  // namespace quavix
