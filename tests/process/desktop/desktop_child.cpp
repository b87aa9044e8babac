// SPDX-License-Identifier: MIT
// The desktop program without its windows, for tests to watch and to kill; its speaker plays on an event
// device that is open as descriptor 3.
//   motor PORT              plays one long note on the motor, tied to what follows
//   midi FOLDER DEVICE INSTRUMENT SONG
//                           plays a song's MIDI notes once on the JACK device of that name; the controls are
//                           installed from FOLDER to FOLDER/windows; writes the wall clock's nanoseconds at
//                           which each note was sent to standard output
//   install FOLDER          only installs them so; ends with 0 where they are in place
//   --register CONTROL      what the installation starts
//   synchro HOUR MIN SEC    waits for that time of day, then plays one line; writes the wall clock's
//                           nanoseconds at which its speaker was told to sound to standard output
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "app/desktop_ports.h"
#include "app/desktop_program.h"
#include "platform/common/console_boxes.h"
#include "platform/common/environment.h"
#include "platform/common/module_loader.h"
#include "platform/common/system_ports.h"
#include "platform/common/termination_signals.h"
#include "platform/linux/speaker/event_speaker.h"
#include "platform/qt/qt_application.h"
#include "program/program.h"
#include "program/program_parts.h"
#include "simulation/simulated_ports.h"
#include "wall_clock.h"

namespace {

/// Notes when the first tone comes.
class TimedSpeaker : public quavix::Speaker {
  public:
    explicit TimedSpeaker(quavix::Speaker& speaker) : speaker_(speaker) {}
    void Beep(std::int32_t frequency, std::int32_t durationMs) override {
        if (FirstNs == 0)
            FirstNs = quavix::WallClockNs();
        speaker_.Beep(frequency, durationMs);
    }
    quavix::SpeakerStatus Status() const override { return speaker_.Status(); }

    std::int64_t FirstNs = 0;

  private:
    quavix::Speaker& speaker_;
};

/// Notes when each note goes out.
class TimedMidiOut : public quavix::MidiOutPort {
  public:
    explicit TimedMidiOut(quavix::MidiOutPort& port) : port_(port) {}
    std::string Prepare() override { return port_.Prepare(); }
    std::string SystemName() override { return port_.SystemName(); }
    std::int32_t DeviceCount() override { return port_.DeviceCount(); }
    std::string DeviceName(std::int32_t device) override { return port_.DeviceName(device); }
    bool Open(std::int32_t device) override { return port_.Open(device); }
    void Close() override { port_.Close(); }
    quavix::MidiDeviceState State() override { return port_.State(); }
    std::string Problem() override { return port_.Problem(); }

    quavix::MidiSendResult Send(const quavix::MidiMessage& message) override {
        constexpr int NoteOn = 0x90;
        const std::int64_t now = quavix::WallClockNs();
        const quavix::MidiSendResult result = port_.Send(message);
        if ((message.Status & 0xF0) == NoteOn && result == quavix::MidiSendResult::Sent)
            NotesNs.push_back(now);
        return result;
    }

    std::vector<std::int64_t> NotesNs;

  private:
    quavix::MidiOutPort& port_;
};

}  // namespace

int main(int argc, char** argv) {
    using namespace quavix;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty())
        return 2;
    if (arguments[0] == "--register" && arguments.size() == 2) {
        std::string problem;
        return RegisterControl(arguments[1], problem) ? 0 : 1;
    }
    const bool withMidi = arguments[0] == "midi" || arguments[0] == "install";
    const std::string folder = withMidi && arguments.size() > 1 ? arguments[1] : "";
    constexpr int DeviceFd = 3;
    TerminationSignals signals;
    EventSpeaker device{FileDescriptor(DeviceFd), FileDescriptor(), ToneClock()};
    TimedSpeaker speaker(device);
    QtApplication application(argc, argv, "child", "1");
    DesktopPorts real({.ProgramFolder = folder,
                       .WinFolder = folder + "/windows",
                       .SerialPort = arguments.size() > 1 && !withMidi ? arguments[1] : "",
                       .MidiSystem = "jack"});
    SimulatedPorts simulated;
    ConsoleBoxes boxes(false);
    TimedMidiOut midiOut(real.Midi.Out());
    ProgramPorts ports = real.All(speaker, simulated.Loading);
    ports.Boxes = boxes;
    ports.MidiOutDevices = midiOut;
    ProgramParts parts(ports);
    Program app(parts);
    const std::unique_ptr<Processes> processes = MakeProcesses();
    DesktopProgram desktop(app, {.System = *processes,
                                 .EndProcess = EndProcess,
                                 .StateFolder = StateFolderFromEnvironment(),
                                 .CommandLine = {}});
    application.WhenSignalled(signals.Handle(), [&] { desktop.CloseProgram(); });
    app.Fields.State.TickFreq = ReadTickFreq(real.Time, app.Log);
    if (arguments[0] == "motor") {
        constexpr double LongMs = 600'000;
        app.Fields.Song.NoteSilenceRatio.Set(100);
        app.Fields.Mods.UseMotor.Ticked = true;
        std::string note = "C4";
        app.Outputs.ToneDispatcher.UniBeep(note, LongMs);
    } else if (arguments[0] == "install") {
        return app.Outputs.ControlInstaller.CopyFileToSystem32(ControlInstaller::MidiDevicesControl) ? 0 : 1;
    } else if (arguments[0] == "midi" && arguments.size() == 5) {
        app.Fields.Output.MutePCSpeaker = true;
        app.Fields.Mods.UseMIDIOut.Ticked = true;
        const std::vector<std::string> names = app.Outputs.MidiOutput.Fields.MIDIOutDevices;
        const auto chosen = std::find(names.begin(), names.end(), arguments[2]);
        if (chosen == names.end())
            return 1;
        app.Outputs.MidiOutput.cmbMIDIOutDevice_Click(static_cast<std::int32_t>(chosen - names.begin()));
        app.Outputs.MidiOutput.cmbInstrument_Click(std::stoi(arguments[3]));
        app.Storage.SongReader.ActuallyLoadMusic(arguments[4]);
        app.Playing.PlaybackEngine.OnRangeEnd = [&] { app.Playing.PlaybackEngine.StopPlayButton_Click(); };
        app.Playing.PlaybackEngine.PlayAllButton_Click();
        fmt::print("{}\n", fmt::join(midiOut.NotesNs, "\n"));
        std::fflush(stdout);
        desktop.CloseProgram();
    } else if (arguments[0] == "synchro" && arguments.size() == 4) {
        app.List.Append("1/16", "A4", "", "");
        app.Playing.SynchroPlay.txtHour.Type(arguments[1]);
        app.Playing.SynchroPlay.txtMinute.Type(arguments[2]);
        app.Playing.SynchroPlay.txtSecond.Type(arguments[3]);
        app.Playing.PlaybackEngine.OnRangeEnd = [&] { app.Playing.PlaybackEngine.StopPlayButton_Click(); };
        app.Playing.SynchroPlay.btnWait_Click();
        fmt::print("{}\n", speaker.FirstNs);
    } else {
        return 2;
    }
    return 0;
}
