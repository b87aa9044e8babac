// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "app/shutdown.h"
#include "ports/process_end.h"
#include "ports/processes.h"
#include "program/program.h"
#include "songfile/recovery.h"

namespace quavix {

/// The surroundings of a desktop program, besides its ports. All must outlive it.
struct DesktopFacts {
    Processes& System;
    ProcessEnd& End;
    /// The folder where unsaved songs are kept.
    std::string StateFolder;
    /// The command line behind the program's name.
    std::string CommandLine;
    /// Lets message boxes answer themselves from now on; called when the program ends.
    std::function<void()> AnswerBoxes = [] {};
};

/// A program on the desktop, apart from its windows: start-up in a fixed order that the log shows, the
/// recovery of unsaved songs, and the end.
class DesktopProgram {
  public:
    DesktopProgram(Program& program, DesktopFacts facts);

    /// Does everything that the main window needs: notices, switches.
    void BeforeMainForm();

    /// Does everything that needs the main window. Loads the song named on the command line, and offers
    /// unsaved songs of earlier processes, which must not replace it. A command line that names no file shows
    /// a message.
    void AfterMainForm();

    /// Opens the MIDI file named on the command line, whose window comes beside the main one.
    void MainFormIsShown();

    /// The user wants the program to end: asks whether the song may go, then ends the process.
    void QueryUnload();

    /// Ends the process without asking. Outputs that can't be released are left to the log.
    void CloseProgram();

    quavix::Recovery Recovery;
    quavix::Shutdown Shutdown;

  private:
    void StartLog();
    void SwitchToneCode();
    void LoadCommandLineFile();
    void StartFmod();

    Program& program_;
    DesktopFacts facts_;
    std::string midiFile_;
    bool songIsLoaded_ = false;
};

}  // namespace quavix
