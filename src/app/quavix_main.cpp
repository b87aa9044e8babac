// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "app/command_line.h"
#include "app/desktop_ports.h"
#include "app/desktop_program.h"
#include "platform/common/environment.h"
#include "platform/common/module_loader.h"
#include "platform/common/speaker/choose_speaker.h"
#include "platform/common/system_ports.h"
#include "platform/common/termination_signals.h"
#include "platform/qt/qt_application.h"
#include "program/program.h"
#include "program/program_parts.h"
#include "shell/program_info.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/main_window/main_form.h"

using namespace quavix;

int main(int argc, char** argv) {
    if (const auto answer = AnswerToOption({argv + 1, argv + argc})) {
        std::fputs(answer->c_str(), stdout);
        return EXIT_SUCCESS;
    }

    if (const auto control = ControlToRegister({argv + 1, argv + argc})) {
        std::string problem;
        if (RegisterControl(*control, problem))
            return EXIT_SUCCESS;
        std::fputs((problem + "\n").c_str(), stderr);
        return EXIT_FAILURE;
    }

    // The speaker comes first, because the real one forks its guard, which must happen before threads exist.
    // A signal ends the program even during a tone, while no handler can run.
    TerminationSignals signals;
    std::function<void()> closeProgram;
    SpeakerChoice speakerChoice = SpeakerChoiceFromEnvironment();
    speakerChoice.Clock.WaitUntil = [&](std::int64_t deadlineNs) {
        if (signals.SleepUntil(deadlineNs) && closeProgram)
            closeProgram();
    };
    const std::unique_ptr<Speaker> speaker = ChooseSpeaker(speakerChoice);
    QtApplication application(argc, argv, program::Title, program::VersionText);

    DesktopPorts ports({.ProgramFolder = FolderOfProgram(),
                        .WinFolder = WinFolderFromEnvironment(),
                        .SerialPort = FromEnvironment("QUAVIX_SERIAL_PORT"),
                        .MidiSystem = {}});
    SaveLoadForm saveLoadForm(ports.Time);
    ProgramParts parts(ports.All(*speaker, saveLoadForm));
    Program program(parts);
    const std::unique_ptr<Processes> processes = MakeProcesses();
    DesktopProgram desktop(program, {.System = *processes,
                                     .EndProcess = EndProcess,
                                     .StateFolder = StateFolderFromEnvironment(),
                                     .CommandLine = CommandText(application.Arguments()),
                                     .AnswerBoxes = [&] { ports.Boxes.AnswerThemselves(); }});
    closeProgram = [&] { desktop.CloseProgram(); };
    application.WhenSignalled(signals.Handle(), closeProgram);

    desktop.BeforeMainForm();
    MainForm mainForm(program, saveLoadForm, [&] { desktop.QueryUnload(); });
    desktop.AfterMainForm();
    mainForm.show();
    desktop.MainFormIsShown();
    return application.Run();
}
