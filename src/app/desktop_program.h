// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "ports/processes.h"
#include "program/program.h"
#include "songfile/recovery.h"

namespace quavix {

/// Dependencies of DesktopProgram, besides its ports. All must outlive it.
struct DesktopFacts {
    Processes& System;
    /// Ends the process at once, whatever is on the stack. Returns only in a simulation.
    std::function<void()> EndProcess;
    /// Folder of the unsaved songs.
    std::string StateFolder;
    /// The command line after the program's name.
    std::string CommandLine;
    /// Makes message boxes answer themselves from now on; called when the program ends.
    std::function<void()> AnswerBoxes = [] {};
};

/// A program on the desktop without its windows: its start-up, in the fixed order of the log, the recovery of
/// unsaved songs, and its end.
class DesktopProgram {
  public:
    DesktopProgram(Program& program, DesktopFacts facts);

    /// Runs the steps before the main window is made: notices, switches.
    void BeforeMainForm();

    /// Runs the steps that need the main window. Loads the song named on the command line, and offers unsaved
    /// songs of earlier processes, which must not replace it. If the command line names no existing file,
    /// shows a message.
    void AfterMainForm();

    /// Opens the MIDI file named on the command line; its window appears beside the main one.
    void MainFormIsShown();

    /// Asks about unsaved changes on the user's request to end the program, then ends the process.
    void QueryUnload();

    /// Releases the outputs and ends the process without a question, even if an output can't be released or
    /// the log can't be written. A second call during the first does nothing.
    void CloseProgram();

    quavix::Recovery Recovery;

  private:
    void StartLog();
    void SwitchToneCode();
    void LoadCommandLineFile();
    void StartFmod();
    void DoShutDownStuff();

    Program& program_;
    DesktopFacts facts_;
    std::string midiFile_;
    bool songIsLoaded_ = false;
};

}  // namespace quavix
