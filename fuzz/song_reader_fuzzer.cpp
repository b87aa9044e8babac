// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <fmt/format.h>

#include "program/program.h"
#include "program/program_parts.h"
#include "shell/runtime_error.h"
#include "simulation/simulated_ports.h"

// Loads any bytes as a song. The load must end in a song or in one of two errors, and a loaded song must be
// the same after saving and loading it again.
namespace quavix {
namespace {

void Require(bool holds, const char* what) {
    if (!holds) {
        fmt::print(stderr, "does not hold: {}\n", what);
        std::abort();
    }
}

/// Answers the question about the header by one bit, and accepts a number of malformed lines.
class FuzzedBoxes : public MessageBoxes {
  public:
    FuzzedBoxes(bool loadAnyway, int linesToAccept)
        : loadAnyway_(loadAnyway), linesToAccept_(linesToAccept) {}

    BoxAnswer Show(const MessageBox& box) override {
        ++Count;
        if (box.Buttons == BoxButtons::YesNo)
            return loadAnyway_ ? BoxAnswer::Yes : BoxAnswer::No;
        if (box.Buttons == BoxButtons::OkCancel)
            return linesToAccept_-- > 0 ? BoxAnswer::Ok : BoxAnswer::Cancel;
        return BoxAnswer::Ok;
    }

    int Count = 0;

  private:
    bool loadAnyway_;
    int linesToAccept_;
};

/// A program on simulated ports, except for its message boxes.
struct FuzzedProgram {
    FuzzedProgram(bool loadAnyway, int linesToAccept) : Boxes(loadAnyway, linesToAccept) {}

    std::string Save() {
        Simulated.Disk.Delete("saved");
        Simulated.Picker.AnswerNext("saved");
        App.Storage.SongWriter.SaveMusic();
        return Simulated.Disk.Content("saved");
    }

    ProgramPorts Ports() {
        ProgramPorts ports = Simulated.All();
        ports.Boxes = Boxes;
        return ports;
    }

    FuzzedBoxes Boxes;
    SimulatedPorts Simulated;
    ProgramParts Parts{Ports()};
    Program App{Parts};
};

void LoadSaveLoad(std::uint8_t answers, std::uint8_t readSize, std::string song) {
    constexpr int LinesMask = 0x7;
    FuzzedProgram first((answers & 1) != 0, (answers >> 1) & LinesMask);
    if ((answers & 0x10) != 0)
        first.App.Log.Enable();
    if (readSize > 0)
        first.Simulated.Disk.SetReadSize(readSize);
    first.App.List.Append("old", "SONG", "", "");
    first.Simulated.Disk.Put("song", std::move(song));
    try {
        first.App.Storage.SongReader.ActuallyLoadMusic("song");
    } catch (const RuntimeError& error) {
        Require(error.Number() == RuntimeError::Overflow || error.Number() == RuntimeError::TypeMismatch,
                "a load ends in a song, an overflow or a type mismatch");
        Require(first.App.List.Count() == 1 && first.App.List.Text(1, Cell::Note1) == "SONG",
                "a load that fails leaves the old list");
    }
    Require(!first.Simulated.Loading.InfoShown, "the information mode is left");
    Require(first.App.Log.LogIndent() == 0, "the log's indentation is what it was");

    const std::string saved = first.Save();
    FuzzedProgram second(false, 0);
    second.Simulated.Disk.Put("song", saved);
    second.App.Storage.SongReader.ActuallyLoadMusic("song");
    Require(second.Boxes.Count == 0, "a saved song loads without a word");
    Require(second.App.List.Count() == first.App.List.Count(), "a saved song has as many rows");
    for (std::int32_t row = 1; row <= first.App.List.Count(); ++row) {
        Require(first.App.List.Line(row) == second.App.List.Line(row), "a saved row comes back");
    }
    Require(second.Save() == saved, "a saved song is saved the same again");
}

}  // namespace
}  // namespace quavix

/// The first byte answers the questions, the second is the number of bytes per read; the rest is the song.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t ControlBytes = 2;
    if (size >= ControlBytes) {
        quavix::LoadSaveLoad(data[0], data[1],
                             {reinterpret_cast<const char*>(data) + ControlBytes, size - ControlBytes});
    }
    return 0;
}
