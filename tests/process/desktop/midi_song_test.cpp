// SPDX-License-Identifier: MIT
// Songs over MIDI: what a synthesizer at the same JACK server receives, when, and how it sounds.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <sstream>
#include <sys/wait.h>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "desktop_process.h"
#include "process/jack_midi_peer.h"
#include "process/jack_server.h"
#include "support/measure.h"
#include "support/simulated_program.h"
#include "support/spectrum.h"
#include "support/temporary_folder.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

using Event = JackMidiPeer::Event;

constexpr double FramesPerSecond = 48000;
constexpr double MicrosecondsPerSecond = 1'000'000;
constexpr int Ocarina = 79;

struct TimedEvent {
    double Seconds = 0;
    Event Bytes;
};

std::string SongText(int bpm, const std::vector<std::string>& lines) {
    return fmt::format("Quavix by Dastrel-204 file format\nBPM {}\nMUSICLISTSTART\n{}\n", bpm,
                       fmt::join(lines, "\n"));
}

/// Returns the messages that the program sends on simulated time after it has opened the synthesizer.
std::vector<TimedEvent> Timetable(const std::string& song) {
    test::SimulatedProgram p;
    p.Disk.Put("song", song);
    p.Disk.Put("/windows/system32/midiio32.ocx", "module");
    p.MidiOut.Devices = {"synthesizer:in"};
    p.App.Fields.Output.MutePCSpeaker = true;
    p.App.Fields.Mods.UseMIDIOut.Ticked = true;
    p.Timeline.Clear();
    p.App.Outputs.MidiOutput.cmbMIDIOutDevice_Click(1);
    p.App.Outputs.MidiOutput.cmbInstrument_Click(Ocarina);
    p.App.Storage.SongReader.ActuallyLoadMusic("song");
    p.App.Playing.PlaybackEngine.OnRangeEnd = [&] { p.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    p.App.Playing.PlaybackEngine.PlayAllButton_Click();
    std::vector<TimedEvent> events;
    for (const std::string& line : p.Timeline.Lines()) {
        TimedEvent event;
        std::istringstream words(line);
        std::string midi;
        std::string out;
        words >> event.Seconds >> midi >> out >> std::hex;
        for (unsigned byte = 0; words >> byte;)
            event.Bytes.push_back(static_cast<std::uint8_t>(byte));
        if (event.Bytes.size() != 3)
            continue;
        if ((event.Bytes[0] & 0xF0) == 0xC0)
            event.Bytes.pop_back();
        events.push_back(event);
    }
    return events;
}

class MidiSong : public testing::Test {
  protected:
    MidiSong() {
        std::filesystem::copy_file(QUAVIX_MIDI_IO_MODULE, Folder.File("midiio32.ocx"));
        std::filesystem::create_directory(Folder.File("windows"));
    }

    /// Plays the song in a process of its own and returns the messages that the synthesizer has received.
    /// JACK loses messages at its xruns: if `fault` returns a text and the server reported a disturbance, the
    /// song is played again. Returns nothing if the test has failed, or, marked as skipped, if all runs were
    /// disturbed. A fault without a disturbance always fails the test.
    std::vector<TimedEvent> Play(const std::string& song,
                                 const std::function<std::string(const std::vector<TimedEvent>&)>& fault) {
        constexpr int MostRuns = 5;
        Folder.Put("song", song);
        for (int run = 0; run < MostRuns; ++run) {
            JackMidiPeer synthesizer("synthesizer");
            DesktopProcess program({"midi", Folder.Path().string(), "synthesizer:in", std::to_string(Ocarina),
                                    Folder.File("song")});
            const int status = program.Wait();
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
            const std::vector<Event> received = synthesizer.ReceivedSoFar();
            const std::vector<jack_time_t> times = synthesizer.Times();
            std::vector<TimedEvent> events;
            for (std::size_t i = 0; i < received.size(); ++i)
                events.push_back(
                    {static_cast<double>(times[i] - times[0]) / MicrosecondsPerSecond, received[i]});
            const std::string found = fault(events);
            if (found.empty())
                return events;
            if (synthesizer.Disturbances() == 0) {
                ADD_FAILURE() << found;
                return {};
            }
        }
        [] { GTEST_SKIP() << "the JACK server does not get the time that it needs"; }();
        return {};
    }

    test::TemporaryFolder Folder;
    JackServer Server;
};

/// Returns a text unless the messages are those that are due, in their order.
std::string Difference(const std::vector<TimedEvent>& received, const std::vector<TimedEvent>& due) {
    if (received.size() != due.size())
        return fmt::format("{} messages instead of {}", received.size(), due.size());
    for (std::size_t i = 0; i < due.size(); ++i) {
        if (received[i].Bytes != due[i].Bytes)
            return fmt::format("message {} is another one", i);
    }
    return {};
}

/// How late each message came, in seconds after the first. That and the second go out before the song is
/// loaded, and are left out.
std::vector<double> Delays(const std::vector<TimedEvent>& received, const std::vector<TimedEvent>& due) {
    std::vector<double> delays;
    for (std::size_t i = 2; i < due.size(); ++i)
        delays.push_back(received[i].Seconds - due[i].Seconds);
    return delays;
}

void AppendBigEndian(std::string& bytes, std::uint32_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
}

/// A MIDI file of what was received: a tick is a millisecond.
std::string MidiFile(const std::vector<TimedEvent>& events) {
    std::string track("\0\xFF\x51\x03\x0F\x42\x40", 7);  // a quarter note is a second
    std::uint32_t last = 0;
    for (const TimedEvent& event : events) {
        const auto now = static_cast<std::uint32_t>(event.Seconds * 1000);
        for (int shift = 21; shift >= 0; shift -= 7)
            track += static_cast<char>(((now - last) >> shift & 0x7F) | (shift > 0 ? 0x80 : 0));
        last = now;
        track.append(event.Bytes.begin(), event.Bytes.end());
    }
    track += std::string("\x8F\0\xFF\x2F\0", 5);
    std::string file("MThd\0\0\0\x06\0\0\0\x01\x03\xE8MTrk", 18);
    AppendBigEndian(file, static_cast<std::uint32_t>(track.size()), 4);
    return file + track;
}

TEST_F(MidiSong, EveryMessageArrivesInOrderAndOnTheTimetable) {
    std::vector<std::string> lines;
    for (int i = 0; i < 8; ++i) {
        lines.insert(lines.end(), {"1/16 C4 - -", "1/16 E4 G4 -", "1/8 G#9 - Dot", "1/16 - - -",
                                   "1/8 A4 - Tri", "1/16 C4 - -"});
    }
    const std::string song = SongText(240, lines);
    const std::vector<TimedEvent> due = Timetable(song);
    ASSERT_GT(due.size(), 80u);
    ASSERT_TRUE(Server.Start());
    Play(song, [&](const std::vector<TimedEvent>& received) {
        if (std::string difference = Difference(received, due); !difference.empty())
            return difference;
        // Some may be late, but nothing adds up: in each part of the song some are on time.
        constexpr double AFewCycles = 0.02;
        const std::vector<double> late = Delays(received, due);
        const double start = *std::min_element(late.begin(), late.end());
        const std::size_t part = late.size() / 4;
        for (std::size_t from = 0; from + part <= late.size(); from += part) {
            const auto begin = late.begin() + static_cast<std::ptrdiff_t>(from);
            const double least = *std::min_element(begin, begin + static_cast<std::ptrdiff_t>(part)) - start;
            if (least >= AFewCycles)
                return fmt::format("from message {} on, all are late by {} s and more", from + 2, least);
        }
        return std::string();
    });
}

TEST_F(MidiSong, ASynthesizerSoundsItsNotesAnOctaveBelowTheSpeakers) {
    const std::string song = SongText(120, {"Half A4 - -", "Half C5 - -", "Half E5 - -"});
    const std::vector<TimedEvent> due = Timetable(song);
    ASSERT_TRUE(Server.Start());
    const std::vector<TimedEvent> received = Play(song, [&](const std::vector<TimedEvent>& events) {
        if (std::string difference = Difference(events, due); !difference.empty())
            return difference;
        constexpr double PartOfANote = 0.2;
        const std::vector<double> late = Delays(events, due);
        const auto [least, most] = std::minmax_element(late.begin(), late.end());
        return *most - *least < PartOfANote ? "" : fmt::format("a message is late by {} s", *most - *least);
    });
    if (received.empty())
        return;
    Folder.Put("song.mid", MidiFile(received));
    const int status =
        std::system(fmt::format("cd '{}' && fluidsynth -ni -R 0 -C 0 -r 48000 -O s16 -T wav -F out.wav "
                                "/usr/share/sounds/sf2/FluidR3_GM.sf2 song.mid >/dev/null 2>&1",
                                Folder.Path().string())
                        .c_str());
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    const auto sound = test::ReadWavFile(Folder.File("out.wav"));
    ASSERT_TRUE(sound);
    std::vector<float> left;
    for (std::size_t frame = 0; frame < sound->Frames(); ++frame)
        left.push_back(sound->Samples[frame * static_cast<std::size_t>(sound->Channels)]);
    constexpr double Hz[] = {220, 261.63, 329.63};
    std::size_t note = 0;
    for (const TimedEvent& event : received) {
        if ((event.Bytes[0] & 0xF0) != 0x90)
            continue;
        constexpr double After = 0.3;
        constexpr std::size_t Length = 16384;
        const auto from = static_cast<std::size_t>((event.Seconds + After) * FramesPerSecond);
        ASSERT_LE(from + Length, left.size());
        const test::Spectrum spectrum(std::span<const float>(left).subspan(from, Length), FramesPerSecond);
        const double heard = spectrum.HighestDb(Hz[note] * 0.985, Hz[note] * 1.015);
        EXPECT_GT(heard, -60);
        for (double other : Hz) {
            if (other != Hz[note]) {
                EXPECT_LT(spectrum.HighestDb(other * 0.985, other * 1.015), heard - 20) << other;
            }
        }
        EXPECT_LT(spectrum.HighestDb(50, Hz[note] * 0.9), heard - 20) << "the lowest tone is the note's";
        ++note;
    }
    EXPECT_EQ(note, 3u);
}

TEST_F(MidiSong, CopiesOfTheProgramInstallTheControlAtTheSameTime) {
    std::vector<std::unique_ptr<DesktopProcess>> copies;
    for (int i = 0; i < 6; ++i)
        copies.push_back(
            std::make_unique<DesktopProcess>(std::vector<std::string>{"install", Folder.Path().string()}));
    for (const auto& copy : copies) {
        const int status = copy->Wait();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    EXPECT_EQ(Folder.Content("windows/system32/midiio32.ocx"), Folder.Content("midiio32.ocx"));
    EXPECT_EQ(Folder.EntryCount(), 2) << "the control and the folder that it was installed to";
}

}  // namespace
}  // namespace quavix
