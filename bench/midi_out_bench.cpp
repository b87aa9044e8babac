// SPDX-License-Identifier: MIT
// Measures MIDI output at a private JACK server with 128 frames per period: the messages sent per second, and
// the lateness of a song's notes when sent and received, beside a plain RtMidi sender that sleeps until each
// note is due. Lateness is relative to the least late note.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <RtMidi.h>
#include <fmt/format.h>

#include "platform/common/module_midi_devices.h"
#include "process/desktop/desktop_process.h"
#include "process/desktop/wall_clock.h"
#include "process/jack_midi_peer.h"
#include "process/jack_server.h"
#include "process/polled_handles.h"
#include "support/temporary_folder.h"

namespace {

using namespace quavix;

constexpr int NoteMs = 50;
constexpr double NsPerMs = 1e6;
constexpr double UsPerMs = 1e3;

/// Playback skips the note of a line that it reaches after the note's end: such a gap does not make the
/// following notes late.
std::vector<double> Lateness(const std::vector<double>& timesMs) {
    constexpr double EarlyMs = 10;
    std::vector<double> late;
    double line = 0;
    for (std::size_t note = 1; note < timesMs.size(); ++note) {
        const double sinceLast = timesMs[note] - timesMs[note - 1];
        const double lastLate = late.empty() ? 0 : late.back();
        line += std::max(1.0, std::floor((sinceLast + lastLate + EarlyMs) / NoteMs));
        late.push_back(timesMs[note] - timesMs[1] - (line - 1) * NoteMs);
    }
    std::sort(late.begin(), late.end());
    const double least = late.empty() ? 0 : late.front();
    for (double& ms : late)
        ms -= least;
    return late;
}

void Print(const char* what, const std::vector<double>& timesMs) {
    const std::vector<double> late = Lateness(timesMs);
    if (late.empty()) {
        fmt::print("{:28} nothing\n", what);
        return;
    }
    const auto share = [&](double part) {
        return late[static_cast<std::size_t>(part * static_cast<double>(late.size() - 1))];
    };
    fmt::print("{:28} median {:7.3f} ms   90 % {:7.3f} ms   99 % {:7.3f} ms   worst {:7.3f} ms\n", what,
               share(0.5), share(0.9), share(0.99), late.back());
}

/// Returns the arrival times of the note-ons.
std::vector<double> NoteArrivalsMs(JackMidiPeer& peer, std::size_t messages) {
    const std::vector<JackMidiPeer::Event> events = peer.Received(messages);
    const std::vector<jack_time_t> times = peer.Times();
    std::vector<double> arrivals;
    for (std::size_t i = 0; i < events.size(); ++i) {
        if ((events[i][0] & 0xF0) == 0x90)
            arrivals.push_back(static_cast<double>(times[i]) / UsPerMs);
    }
    return arrivals;
}

void MeasureSong(int notes) {
    test::TemporaryFolder folder;
    std::filesystem::copy_file(QUAVIX_MIDI_IO_MODULE, folder.File("midiio32.ocx"));
    // The silence after a note is waited for in slices, and one is enough here: every line but the first
    // begins the same 5 ms after its beat.
    std::string song = "Quavix by Dastrel-204 file format\nBPM 300\nNoteSilenceRatio 80\nMUSICLISTSTART\n";
    for (int note = 0; note < notes; ++note)
        song += "1/16 C5 - -\n";
    folder.Put("song", song);
    JackMidiPeer peer("synthesizer");
    DesktopProcess program({"midi", folder.Path().string(), "synthesizer:in", "0", folder.File("song")});
    std::istringstream output(program.Output());
    std::vector<double> left;
    for (std::int64_t ns = 0; output >> ns;)
        left.push_back(static_cast<double>(ns) / NsPerMs);
    program.Wait();
    Print("song, notes leave", left);
    Print("song, notes arrive", NoteArrivalsMs(peer, 2 * static_cast<std::size_t>(notes)));
}

void MeasureBareSender(int notes) {
    constexpr std::int64_t NoteNs = std::int64_t{NoteMs} * 1'000'000;
    JackMidiPeer peer("synthesizer");
    RtMidiOut out(RtMidi::UNIX_JACK, "bare sender");
    out.openVirtualPort("out");
    if (!peer.Listen("bare sender:out")) {
        fmt::print("the bare sender can't be connected to\n");
        return;
    }
    std::vector<double> left;
    const std::int64_t start = WallClockNs() + NoteNs;
    for (int note = 0; note < notes; ++note) {
        const std::int64_t due = start + note * NoteNs;
        const timespec until{due / NsPerSecond, due % NsPerSecond};
        clock_nanosleep(CLOCK_REALTIME, TIMER_ABSTIME, &until, nullptr);
        left.push_back(static_cast<double>(WallClockNs()) / NsPerMs);
        const unsigned char message[] = {0x90, 60, 96};
        out.sendMessage(message, sizeof message);
    }
    const std::vector<double> arrivals = NoteArrivalsMs(peer, static_cast<std::size_t>(notes));
    Print("bare sender, notes leave", left);
    Print("bare sender, notes arrive", arrivals);
}

void MeasureRate() {
    constexpr std::size_t Count = 100'000;
    JackMidiPeer peer("synthesizer");
    PolledHandles handles;
    ModuleMidiDevices devices(QUAVIX_MIDI_IO_MODULE, handles, "jack");
    const std::int32_t count = devices.Out().DeviceCount();
    for (std::int32_t device = 0; device < count; ++device) {
        if (devices.Out().DeviceName(device) == "synthesizer:in")
            devices.Out().Open(device);
    }
    const std::int64_t start = WallClockNs();
    for (std::size_t sent = 0; sent < Count;) {
        const MidiMessage message{0x80, static_cast<std::uint8_t>(sent % 128), 0};
        const MidiSendResult result = devices.Out().Send(message);
        if (result == MidiSendResult::Sent)
            ++sent;
        else if (result == MidiSendResult::Busy)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        else
            return;
    }
    const std::size_t received = peer.Received(Count).size();
    const double seconds = static_cast<double>(WallClockNs() - start) / 1e9;
    fmt::print("{} messages of {} received, {:.0f} a second\n", received, Count,
               static_cast<double>(received) / seconds);
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int DefaultNotes = 400;
    const int notes = argc > 1 ? std::atoi(argv[1]) : DefaultNotes;
    JackServer server;
    if (!server.Start()) {
        fmt::print("no JACK server starts\n");
        return EXIT_FAILURE;
    }
    MeasureRate();
    MeasureBareSender(notes);
    MeasureSong(notes);
    return EXIT_SUCCESS;
}
