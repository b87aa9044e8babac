// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "app/desktop_program.h"
#include "platform/common/console_boxes.h"
#include "platform/common/system_ports.h"
#include "program/program.h"
#include "program/program_parts.h"
#include "simulation/simulated_ports.h"
#include "simulation/simulated_processes.h"

// Edits a song without end, with recovery copies in the folder it is given, until it is killed. Its time is
// simulated, so that one copy follows the other at once. Every copy holds a multiple of a hundred equal
// lines. Writes a byte to standard output after the first copy.
int main(int argumentCount, char** arguments) {
    using namespace quavix;
    if (argumentCount != 2)
        return 2;
    const std::string folder = arguments[1];
    SimulatedPorts simulated;
    ConsoleBoxes boxes(false);
    const std::unique_ptr<Files> files = MakeFiles();
    ProgramPorts ports = simulated.All();
    ports.Boxes = boxes;
    ports.Disk = *files;
    ports.ProgramFolder = ports.WinFolder = {};
    ports.LogFile = folder + "/log";
    ports.ToneCodeFile = folder + "/code";
    ProgramParts parts(ports);
    Program app(parts);
    SimulatedTime& time = simulated.Time;
    SimulatedProcesses system;
    DesktopProgram desktop(app,
                           {.System = system, .EndProcess = [] {}, .StateFolder = folder, .CommandLine = {}});
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
        if (!desktop.Recovery.Problem().Get().empty())
            return 1;
        if (pass == 1 && (std::fputc('.', stdout) == EOF || std::fflush(stdout) != 0))
            return 1;
    }
}
