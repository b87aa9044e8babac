// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <string>
#include <vector>

#include "app/absent_midi.h"
#include "app/absent_serial_port.h"
#include "app/program.h"
#include "platform/common/console_boxes.h"
#include "platform/posix/posix_files.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_clipboard.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_speaker.h"
#include "songfile/recovery.h"

// Edits a song without end, with recovery copies in the folder it is given, until it is killed. Its time is
// simulated, so that one copy follows the other at once. Every copy holds a multiple of a hundred equal
// lines. Writes a byte to standard output after the first copy.
int main(int argumentCount, char** arguments) {
    using namespace quavix;
    if (argumentCount != 2)
        return 2;
    const std::string folder = arguments[1];
    SimulatedTime time;
    Timeline timeline;
    ConsoleBoxes boxes(false);
    SimulatedFilePicker picker(time, timeline);
    SimulatedClipboard clipboard(time, timeline);
    PosixFiles files;
    SimulatedSpeaker speaker(time, timeline);
    SeededRandomNumbers random(0);
    AbsentSerialPort serialPort;
    AbsentMidi absent;
    RecordedSoundLibrary library(time, timeline);
    RecordedLoadingView loading(time, timeline);
    Program app({
        .Time = time,
        .Pump = time,
        .Ticks = time,
        .Random = random,
        .Boxes = boxes,
        .Picker = picker,
        .TextClipboard = clipboard,
        .Disk = files,
        .PcSpeaker = speaker,
        .Comm = serialPort,
        .Sound = library,
        .MidiOutDevices = absent.Out,
        .MidiInDevices = absent.In,
        .MidiFiles = absent.Reader,
        .Batches = absent.Batches,
        .Loading = loading,
        .ProgramFolder = {},
        .WinFolder = {},
        .LogFile = folder + "/log",
        .ToneCodeFile = folder + "/code",
    });
    Recovery recovery({app.Fields, app.List, app.Changes, app.Document, files, time, time, boxes,
                       app.Handlers, app.Log, [] { return false; }, folder});
    for (std::int32_t pass = 1;; ++pass) {
        constexpr std::int32_t Songs = 40;
        constexpr std::int32_t LinesMore = 100;
        // Erased, not cleared: that would begin a new song, which has nothing to be copied.
        if (pass % Songs == 0) {
            std::vector<std::int32_t> rows(static_cast<std::size_t>(app.List.Count()));
            std::iota(rows.begin(), rows.end(), 1);
            app.List.RemoveRows(rows);
        }
        for (std::int32_t i = 0; i < LinesMore; ++i)
            app.List.Append("Quarter", "C4", "", "");
        time.RunUntil(static_cast<double>(pass) * Recovery::DelayMs);
        if (!recovery.Problem().Get().empty())
            return 1;
        if (pass == 1 && (std::fputc('.', stdout) == EOF || std::fflush(stdout) != 0))
            return 1;
    }
}
