// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <fmt/format.h>

#include "app/absent_midi.h"
#include "app/program.h"
#include "shell/runtime_error.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_clipboard.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_serial_port.h"
#include "simulation/simulated_speaker.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

// Loads any bytes as a song. Whatever they are, the load ends in a song or in one of two errors; and a song
// that was loaded is the same after it was saved and loaded again.
namespace quavix {
namespace {

void Require(bool holds, const char* what) {
    if (!holds) {
        fmt::print(stderr, "does not hold: {}\n", what);
        std::abort();
    }
}

/// Answers the question about the header by one bit, and agrees to go on after so many malformed lines.
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

struct FuzzedProgram {
    FuzzedProgram(bool loadAnyway, int linesToAccept) : Boxes(loadAnyway, linesToAccept) {}

    std::string Save() {
        Disk.Delete("saved");
        Picker.AnswerNext("saved");
        App.Writer.SaveMusic();
        return Disk.Content("saved");
    }

    quavix::Timeline Timeline;
    SimulatedTime Time;
    FuzzedBoxes Boxes;
    SimulatedFilePicker Picker{Time, Timeline};
    SimulatedClipboard Clipboard{Time, Timeline};
    SimulatedFiles Disk;
    SimulatedSpeaker Speaker{Time, Timeline};
    SeededRandomNumbers Random{0};
    SimulatedSerialPort Comm{Time, Timeline};
    AbsentMidi Absent;
    RecordedSoundLibrary Library{Time, Timeline};
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
        .MidiOutDevices = Absent.Out,
        .MidiInDevices = Absent.In,
        .MidiFiles = Absent.Reader,
        .Batches = Absent.Batches,
        .Loading = Loading,
        .ProgramFolder = {},
        .WinFolder = {},
        .LogFile = "log",
        .ToneCodeFile = "tonecode",
    }};
};

void LoadSaveLoad(std::uint8_t answers, std::uint8_t readSize, std::string song) {
    constexpr int LinesMask = 0x7;
    FuzzedProgram first((answers & 1) != 0, (answers >> 1) & LinesMask);
    if ((answers & 0x10) != 0)
        first.App.Log.Enable();
    if (readSize > 0)
        first.Disk.SetReadSize(readSize);
    first.App.List.Append("old", "SONG", "", "");
    first.Disk.Put("song", std::move(song));
    try {
        first.App.Reader.ActuallyLoadMusic("song");
    } catch (const RuntimeError& error) {
        Require(error.Number() == RuntimeError::Overflow || error.Number() == RuntimeError::TypeMismatch,
                "a load ends in a song, an overflow or a type mismatch");
        Require(first.App.List.Count() == 1 && first.App.List.Text(1, Cell::Note1) == "SONG",
                "a load that fails leaves the old list");
    }
    Require(!first.Loading.InfoShown, "the information mode is left");
    Require(first.App.Log.LogIndent() == 0, "the log's indentation is what it was");

    const std::string saved = first.Save();
    FuzzedProgram second(false, 0);
    second.Disk.Put("song", saved);
    second.App.Reader.ActuallyLoadMusic("song");
    Require(second.Boxes.Count == 0, "a saved song loads without a word");
    Require(second.App.List.Count() == first.App.List.Count(), "a saved song has as many rows");
    for (std::int32_t row = 1; row <= first.App.List.Count(); ++row) {
        Require(first.App.List.Line(row) == second.App.List.Line(row), "a saved row comes back");
    }
    Require(second.Save() == saved, "a saved song is saved the same again");
}

}  // namespace
}  // namespace quavix

/// The first byte answers the questions, the second one is how many bytes come from one read; the rest is the
/// song.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t ControlBytes = 2;
    if (size >= ControlBytes) {
        quavix::LoadSaveLoad(data[0], data[1],
                             {reinterpret_cast<const char*>(data) + ControlBytes, size - ControlBytes});
    }
    return 0;
}
