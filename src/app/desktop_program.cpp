// SPDX-License-Identifier: MIT
#include "app/desktop_program.h"

#include <fmt/format.h>

#include "app/command_line.h"
#include "midi/midi_file_opening.h"
#include "ports/speaker.h"
#include "program/program_parts.h"
#include "shell/debug_log.h"
#include "shell/file_access.h"
#include "shell/process_priority.h"
#include "shell/program_info.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (...) {
        // The program still ends.
    }
}

}  // namespace

DesktopProgram::DesktopProgram(Program& program, DesktopFacts facts)
    : Recovery({program.Fields.Song, program.Fields.Entry, program.Fields.State, program.List,
                program.Editing.EditHistory.Changes, program.Storage.SongDocument, program.Ports.Disk,
                program.Ports.Ticks, program.Ports.Time, program.Ports.Boxes, program.Handlers, program.Log,
                [&program] { return program.IsSounding(); }, facts.StateFolder}),
      program_(program),
      facts_(std::move(facts)) {}

void DesktopProgram::BeforeMainForm() {
    program_.Handlers.Run("MainForm_Load", [this] {
        const ProgramPorts& ports = program_.Ports;
        EnableDebugLogIfWanted(ports.ProgramFolder, ports.Disk, ports.Boxes, program_.Log);
        StartLog();
        program_.Log.Text("App.Path = {}", ports.ProgramFolder);
        constexpr int StandAlone = 0;
        program_.Log.Text("Version info: {}.{}.{}", program::MajorVersion, program::MinorVersion, StandAlone);
        program_.Log.Text("WinFolder is \"{}\"", ports.WinFolder);
        const SpeakerStatus speaker = ports.PcSpeaker.get().Status();
        program_.Log.Text("Speaker in use: {}{}{}", speaker.InUse, speaker.Reason.empty() ? "" : " - ",
                          speaker.Reason);
        SwitchToneCode();
        program_.Fields.State.MusicIsPlaying = false;
        program_.Fields.State.TickFreq = ReadTickFreq(ports.Time, program_.Log);
    });
}

/// Writes the first log line. If the log can't be written, switches it off and tells the user.
void DesktopProgram::StartLog() {
    try {
        program_.Log.LogText("[PROGRAM STARTED]");
    } catch (const RuntimeError& error) {
        program_.Log.Disable();
        program_.Ports.Boxes.get().Show({
            .Title = "Debug logging is not possible",
            .Text = fmt::format("The log file can't be written, so the program goes on without it:\n{}",
                                error.what()),
            .Icon = BoxIcon::Warning,
        });
    }
}

void DesktopProgram::SwitchToneCode() {
    program_.Outputs.ToneCode.UseWriteCode = FileExists(
        FileInFolder(program_.Ports.ProgramFolder, "tonecode.txt"), program_.Ports.Disk, program_.Log);
    if (program_.Outputs.ToneCode.UseWriteCode) {
        program_.Ports.Boxes.get().Show({
            .Title = "Writing of tone/silence code is enabled",
            .Text = "Because there is a file called 'tonecode.txt' in the same folder as this program, the "
                    "program will write a line of code into it for every tone and silence that it makes."
                    "\r\n\r\nWhat is in the file already will be appended to.",
            .Icon = BoxIcon::Information,
        });
    }
    program_.Log.Text("UseWriteCode is {}", LogFlag(program_.Outputs.ToneCode.UseWriteCode));
}

void DesktopProgram::AfterMainForm() {
    program_.Handlers.Run("MainForm_Load", [this] {
        // An error of the song or of the sound must not stop the rest of the start-up.
        program_.Handlers.Run("MainForm_Load", [this] { LoadCommandLineFile(); });
        program_.Handlers.Run("MainForm_Load", [this] { StartFmod(); });
        program_.Outputs.MotorModModule.CheckForPort();
        // The system's first process, not this one, which keeps its priority.
        constexpr std::int32_t FirstProcess = 1;
        constexpr std::int32_t NormalClass = 32;
        SetProcessPriority(facts_.System, FirstProcess, 0, NormalClass);
    });
    program_.Handlers.Run("MainForm_Load", [this] { Recovery.OfferLeftovers(songIsLoaded_); });
}

void DesktopProgram::LoadCommandLineFile() {
    const std::string& commandLine = facts_.CommandLine;
    if (commandLine.empty())
        return;
    program_.Log.Text("Command string given - Command = \"{}\"", commandLine);
    const std::string fileName = FileNameIn(commandLine);
    if (FileExists(fileName, program_.Ports.Disk, program_.Log)) {
        if (IsMidiFileName(fileName)) {
            midiFile_ = fileName;
            return;
        }
        songIsLoaded_ = true;
        program_.Storage.SongDocument.LoadFile(fileName);
        return;
    }
    program_.Ports.Boxes.get().Show({
        .Title = "Can't load the file",
        .Text = fmt::format("You gave this text to this program as you were starting it:\n{}\n"
                            "This program can only try to load text given to it as a file.\n"
                            "In other words, it expects that text to be a file name.\n"
                            "But that file can't be seen, so it can't load it.",
                            commandLine),
        .Icon = BoxIcon::Warning,
    });
}

void DesktopProgram::StartFmod() {
    program_.Outputs.SoundMods.CheckAvailability(program_.Ports.ProgramFolder);
    program_.Outputs.SoundMods.Errors.ShowTogether([this] { program_.Outputs.SoundMods.StartEngine(); });
}

void DesktopProgram::MainFormIsShown() {
    if (!midiFile_.empty())
        program_.Handlers.Run("MainForm_Load",
                              [this] { program_.Playing.MidiFilePlayback.UseFile(midiFile_); });
}

void DesktopProgram::QueryUnload() {
    program_.Handlers.Run("MainForm_QueryUnload", [this] {
        if (!program_.Storage.SongDocument.MayClose())
            return;
        Recovery.GiveUpUnsaved();
        CloseProgram();
    });
}

void DesktopProgram::CloseProgram() {
    facts_.AnswerBoxes();
    if (program_.Fields.State.ShuttingDown)
        return;
    program_.Fields.State.ShuttingDown = true;
    Try([this] { program_.Log.LogText("[REQUEST TO CLOSE PROGRAM]"); });
    Try([this] { program_.Outputs.SoundMods.Singer.VoiceDoShutDownStuff(); });
    DoShutDownStuff();
    Try([this] { program_.Log.LogText("KILLING PROCESS (should be last line in log)"); });
    facts_.EndProcess();
}

void DesktopProgram::DoShutDownStuff() {
    Try([this] { program_.Log.LogIndentInc("DoShutDownStuff() - START"); });
    Try([this] { program_.Outputs.MotorModModule.Stop(); });
    Try([this] { Recovery.End(); });
    Try([this] { program_.Outputs.SoundMods.Engine.Stop(); });
    Try([this] { program_.ReleaseMidi(); });
    Try([this] { program_.Log.LogIndentDec("DoShutDownStuff() - END"); });
}

}  // namespace quavix
