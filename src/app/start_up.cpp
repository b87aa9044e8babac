// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include "app/command_line.h"
#include "midi/midi_file_opening.h"
#include "shell/debug_log.h"
#include "shell/file_access.h"
#include "shell/process_priority.h"
#include "shell/program_info.h"
#include "shell/runtime_error.h"
#include "shell/waiting.h"

namespace quavix {

void StartUp::BeforeMainForm() {
    EnableDebugLogIfWanted(facts_.ProgramFolder, p_.Disk, p_.Boxes, p_.Log);
    StartLog();
    p_.Log.Text("App.Path = {}", facts_.ProgramFolder);
    constexpr int StandAlone = 0;
    p_.Log.Text("Version info: {}.{}.{}", program::MajorVersion, program::MinorVersion, StandAlone);
    p_.Log.Text("WinFolder is \"{}\"", facts_.WinFolder);
    const SpeakerStatus speaker = p_.PcSpeaker.Status();
    p_.Log.Text("Speaker in use: {}{}{}", speaker.InUse, speaker.Reason.empty() ? "" : " - ", speaker.Reason);
    SwitchToneCode();
    p_.Fields.MusicIsPlaying = false;
    p_.Fields.TickFreq = ReadTickFreq(p_.Time, p_.Log);
}

/// A log that can't be written must not keep the program from starting.
void StartUp::StartLog() {
    try {
        p_.Log.LogText("[PROGRAM STARTED]");
    } catch (const RuntimeError& error) {
        p_.Log.Disable();
        p_.Boxes.Show({
            .Title = "Debug logging is not possible",
            .Text = fmt::format("The log file can't be written, so the program goes on without it:\n{}",
                                error.what()),
            .Icon = BoxIcon::Warning,
        });
    }
}

void StartUp::SwitchToneCode() {
    p_.Fields.UseWriteCode = FileExists(FileInFolder(facts_.ProgramFolder, "tonecode.txt"), p_.Disk, p_.Log);
    if (p_.Fields.UseWriteCode) {
        p_.Boxes.Show({
            .Title = "Writing of tone/silence code is enabled",
            .Text = "Because there is a file called 'tonecode.txt' in the same folder as this program, the "
                    "program will write a line of code into it for every tone and silence that it makes."
                    "\r\n\r\nWhat is in the file already will be appended to.",
            .Icon = BoxIcon::Information,
        });
    }
    p_.Log.Text("UseWriteCode is {}", LogFlag(p_.Fields.UseWriteCode));
}

void StartUp::AfterMainForm() {
    // What is wrong with the song or with the sound must not keep the rest from starting.
    p_.Handlers.Run("MainForm_Load", [this] { LoadCommandLineSong(); });
    p_.Handlers.Run("MainForm_Load", [this] { StartFmod(); });
    p_.CheckForPort();
    // The first process of the system, not this one, which keeps the priority that it was started with.
    constexpr std::int32_t FirstProcess = 1;
    constexpr std::int32_t NormalClass = 32;
    SetProcessPriority(p_.System, FirstProcess, 0, NormalClass);
}

void StartUp::LoadCommandLineSong() {
    const std::string& commandLine = facts_.CommandLine;
    if (commandLine.empty())
        return;
    p_.Log.Text("Command string given - Command = \"{}\"", commandLine);
    const std::string fileName = FileNameIn(commandLine);
    if (FileExists(fileName, p_.Disk, p_.Log)) {
        if (IsMidiFileName(fileName)) {
            p_.OpenMidiFile(fileName);
            return;
        }
        songIsLoaded_ = true;
        p_.LoadSong(fileName);
        return;
    }
    p_.Boxes.Show({
        .Title = "Can't load the file",
        .Text = fmt::format("You gave this text to this program as you were starting it:\n{}\n"
                            "This program can only try to load text given to it as a file.\n"
                            "In other words, it expects that text to be a file name.\n"
                            "But that file can't be seen, so it can't load it.",
                            commandLine),
        .Icon = BoxIcon::Warning,
    });
}

void StartUp::StartFmod() {
    p_.Fmod.CheckAvailability(facts_.ProgramFolder);
    p_.Fmod.Errors.ShowTogether([this] { p_.Fmod.StartEngine(); });
}

}  // namespace quavix
