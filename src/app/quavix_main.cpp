// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "app/command_line.h"
#include "app/shutdown.h"
#include "app/start_up.h"
#include "platform/common/environment.h"
#include "platform/common/immediate_end.h"
#include "platform/common/module_loader.h"
#include "platform/common/module_midi_devices.h"
#include "platform/common/module_midi_file_reader.h"
#include "platform/common/notnormal_fmodex.h"
#include "platform/common/speaker/choose_speaker.h"
#include "platform/common/system_clock.h"
#include "platform/common/system_ports.h"
#include "platform/common/system_random_numbers.h"
#include "platform/common/termination_signals.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/qt/qt_file_picker.h"
#include "platform/qt/qt_handle_watch.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timers.h"
#include "program/common_parts.h"
#include "program/outputs.h"
#include "program/playing.h"
#include "program/program.h"
#include "program/song_storage.h"
#include "shell/file_access.h"
#include "shell/program_info.h"
#include "songfile/recovery.h"
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

    // The speaker comes first, as the real one forks its guard, which wants a process without threads. A
    // signal ends the program even in the middle of a tone, while no handler can run.
    TerminationSignals signals;
    std::function<void()> closeProgram;
    SpeakerChoice speakerChoice = SpeakerChoiceFromEnvironment();
    speakerChoice.Clock.WaitUntil = [&](std::int64_t deadlineNs) {
        if (signals.SleepUntil(deadlineNs) && closeProgram)
            closeProgram();
    };
    const std::unique_ptr<Speaker> speaker = ChooseSpeaker(speakerChoice);
    QtApplication application(argc, argv, program::Title, program::VersionText);
    const std::string folder = application.ProgramFolder();

    SystemClock clock;
    const std::unique_ptr<Files> disk = MakeFiles();
    Files& files = *disk;
    const std::unique_ptr<Processes> processes = MakeProcesses();
    ImmediateEnd processEnd;
    QtEventPump pump;
    QtMessageBoxes boxes;
    QtFilePicker picker;
    QtClipboard clipboard;
    QtTimers timers;
    SystemRandomNumbers random;
    QtSerialPort serialPort(SerialPortFromEnvironment());
    NOTNORMALfmodex soundLibrary;
    // The controls are loaded when they are first needed, by when they have been put in place.
    const std::string winFolder = WinFolderFromEnvironment();
    const std::string systemFolder = FileInFolder(winFolder, "system32");
    QtHandleWatch handleWatch;
    ModuleMidiDevices midi(FileInFolder(systemFolder, "midiio32.ocx"), handleWatch);
    ModuleMidiFileReader midiFiles(FileInFolder(systemFolder, "midifl32.ocx"));
    const std::unique_ptr<BatchFiles> batches = MakeBatchFiles();
    SaveLoadForm saveLoad(clock);

    Program app({
        .Time = clock,
        .Pump = pump,
        .Ticks = timers,
        .Random = random,
        .Boxes = boxes,
        .Picker = picker,
        .TextClipboard = clipboard,
        .Disk = files,
        .PcSpeaker = *speaker,
        .Comm = serialPort,
        .Sound = soundLibrary,
        .MidiOutDevices = midi.Out(),
        .MidiInDevices = midi.In(),
        .MidiFiles = midiFiles,
        .Batches = *batches,
        .Loading = saveLoad,
        .ProgramFolder = folder,
        .WinFolder = winFolder,
        .LogFile = FileInFolder(folder, "debuglog.txt"),
        .ToneCodeFile = FileInFolder(folder, "tonecode.txt"),
    });
    Recovery recovery({app.Fields, app.List, app.Storage.SongChanges, app.Storage.SongDocument, files, timers,
                       clock, boxes, app.Handlers, app.Log, [&] { return app.IsSounding(); },
                       StateFolderFromEnvironment()});
    Shutdown shutdown(app.Fields, app.Log, processEnd);
    shutdown.BeforeShutDown([&] { app.Outputs.SoundMods.Singer.VoiceDoShutDownStuff(); });
    shutdown.OnShutDown([&] { app.Outputs.MotorModModule.Stop(); });
    shutdown.OnShutDown([&] { recovery.End(); });
    shutdown.OnShutDown([&] { app.Outputs.SoundMods.Engine.Stop(); });
    shutdown.OnShutDown([&] { app.ReleaseMidi(); });
    closeProgram = [&] {
        boxes.AnswerThemselves();
        shutdown.CloseProgram();
    };
    application.WhenSignalled(signals.Handle(), closeProgram);

    std::string midiFile;
    StartUp startUp(
        {app.Fields, clock, files, boxes, *processes, *speaker, app.Outputs.SoundMods, app.Handlers, app.Log,
         [&](const std::string& song) { app.Storage.SongDocument.LoadFile(song); },
         [&](bool songIsLoaded) { recovery.OfferLeftovers(songIsLoaded); },
         [&] { app.Outputs.MotorModModule.CheckForPort(); },
         [&](const std::string& file) { midiFile = file; }},
        {folder, winFolder, CommandText(application.Arguments())});
    app.Handlers.Run("MainForm_Load", [&] { startUp.BeforeMainForm(); });
    const auto close = [&] {
        app.Handlers.Run("MainForm_QueryUnload", [&] {
            if (!app.Storage.SongDocument.MayClose())
                return;
            recovery.GiveUpUnsaved();
            // What can't be released stands in the log; the end is not held up by it.
            boxes.AnswerThemselves();
            shutdown.CloseProgram();
        });
    };
    MainForm mainForm(app, saveLoad, close);
    app.Handlers.Run("MainForm_Load", [&] { startUp.AfterMainForm(); });
    app.Handlers.Run("MainForm_Load", [&] { startUp.OfferUnsavedSongs(); });
    mainForm.show();
    // Its window comes beside the main one.
    if (!midiFile.empty())
        app.Handlers.Run("MainForm_Load", [&] { app.Playing.MidiFilePlayback.UseFile(midiFile); });
    return application.Run();
}
