// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "app/desktop_program.h"
#include "simulation/simulated_processes.h"
#include "support/simulated_program.h"

namespace quavix::test {

/// The program on simulated ports with its start, recovery and end. The destructor kills the program if it
/// has not ended.
struct SimulatedDesktop : SimulatedProgram {
    explicit SimulatedDesktop(std::string commandLine = {}) : CommandLine(std::move(commandLine)) {}
    /// On a machine that outlives it.
    explicit SimulatedDesktop(SimulatedMachine& machine) : SimulatedProgram(machine) {}

    /// Goes through the whole start.
    void Start() {
        Desktop.BeforeMainForm();
        Desktop.AfterMainForm();
        Desktop.MainFormIsShown();
    }

    std::string CommandLine;
    SimulatedProcesses System;
    DesktopProgram Desktop{App,
                           {.System = System,
                            .EndProcess = [this] { Timeline.Record(Time.Now(), "process ends"); },
                            .StateFolder = "/state",
                            .CommandLine = CommandLine}};
};

}  // namespace quavix::test
