// SPDX-License-Identifier: MIT
// The desktop program without its windows, for tests to watch and to kill; its speaker plays on an event
// device that is open as descriptor 3.
//   motor PORT              plays one long note on the motor, tied to what follows
//   synchro HOUR MIN SEC    waits for that time of day, then plays one line; writes the wall clock's
//                           nanoseconds at which its speaker was told to sound to standard output
#include <cstdint>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "app/absent_midi.h"
#include "app/program.h"
#include "app/shutdown.h"
#include "platform/console/console_boxes.h"
#include "platform/linux/immediate_end.h"
#include "platform/linux/notnormal_fmodex.h"
#include "platform/linux/posix_files.h"
#include "platform/linux/speaker/event_speaker.h"
#include "platform/linux/system_clock.h"
#include "platform/linux/termination_signals.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timers.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/recorded_loading_view.h"
#include "simulation/simulated_clipboard.h"
#include "simulation/simulated_dialogs.h"
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

}  // namespace

int main(int argc, char** argv) {
    using namespace quavix;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty())
        return 2;
    constexpr int DeviceFd = 3;
    TerminationSignals signals;
    EventSpeaker device{FileDescriptor(DeviceFd), FileDescriptor(), ToneClock()};
    TimedSpeaker speaker(device);
    QtApplication application(argc, argv, "child", "1");
    SystemClock clock;
    PosixFiles files;
    ImmediateEnd processEnd;
    QtEventPump pump;
    QtTimers timers;
    ConsoleBoxes boxes(false);
    SimulatedTime noTime;
    Timeline timeline;
    SimulatedFilePicker picker(noTime, timeline);
    SimulatedClipboard clipboard(noTime, timeline);
    RecordedLoadingView loading(noTime, timeline);
    QtSerialPort serialPort(arguments.size() > 1 ? arguments[1] : "");
    SeededRandomNumbers random(1);
    NOTNORMALfmodex library;
    AbsentMidi absent;
    Program app({
        .Time = clock,
        .Pump = pump,
        .Ticks = timers,
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
        .LogFile = {},
        .ToneCodeFile = {},
    });
    Shutdown shutdown(app.Fields, app.Log, processEnd);
    shutdown.OnShutDown([&] { app.Motor.Stop(); });
    application.WhenReadable(signals.Descriptor(), [&] { shutdown.CloseProgram(); });
    app.Fields.TickFreq = ReadTickFreq(clock, app.Log);
    if (arguments[0] == "motor") {
        constexpr double LongMs = 600'000;
        app.Fields.NoteSilenceRatioSlider = 100;
        app.Fields.UseMotorCheck = true;
        std::string note = "C4";
        app.Tones.UniBeep(note, LongMs);
    } else if (arguments[0] == "synchro" && arguments.size() == 4) {
        app.List.Append("1/16", "A4", "", "");
        app.Synchro.txtHour.Text = arguments[1];
        app.Synchro.txtMinute.Text = arguments[2];
        app.Synchro.txtSecond.Text = arguments[3];
        app.Playback.OnRangeEnd = [&] { app.Playback.StopPlayButton_Click(); };
        app.Synchro.btnWait_Click();
        fmt::print("{}\n", speaker.FirstNs);
    } else {
        return 2;
    }
    return 0;
}
