// SPDX-License-Identifier: MIT
// Measures the speed of songs on simulated time, and the cost of lines early and late in a long song.
#include <chrono>
#include <sstream>
#include <streambuf>
#include <vector>

#include <benchmark/benchmark.h>

#include "rendering/song_renderer.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_midi.h"
#include "support/recorded_playback.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

using Seconds = std::chrono::duration<double>;
using Watch = std::chrono::steady_clock;

/// A stream that discards all output.
class NullStream : public std::streambuf {
    int overflow(int c) override { return c; }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

constexpr const char* Melody[] = {"C5", "E5", "G5", "C6", "B5", "G5", "E5", "D5"};

/// Returns a song of short notes: sixteenths at 150 beats per minute, 100 ms each.
std::string MelodySong(int lines) {
    std::string song =
        "Quavix by Dastrel-204 file format\r\nBPM 150\r\nNoteSilenceRatio 90\r\nMUSICLISTSTART\r\n";
    for (int i = 0; i < lines; ++i)
        song += std::string("1/16 ") + Melody[i % 8] + " - -\r\n";
    return song;
}

/// Renders songs to WAV, in seconds of sound per second.
void Render(benchmark::State& state) {
    constexpr int Lines = 6000;
    SimulatedFiles files;
    SimulatedTime time;
    Timeline timeline;
    SimulatedMessageBoxes boxes(time, timeline);
    RecordedSoundLibrary library(time, timeline);
    SimulatedMidiFileReader midiFiles;
    files.Put("song", MelodySong(Lines));
    SongRenderer renderer{files, boxes, library, midiFiles, "", [](double) { return true; }};
    RenderOptions options;
    options.Song = "song";
    NullStream nothing;
    for (auto _ : state) {
        std::ostream out(&nothing);
        renderer.Render(options, out);
    }
    const double seconds = Lines * 0.1;
    state.counters["x_realtime"] = benchmark::Counter(seconds, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(Render)->Unit(benchmark::kMillisecond);

/// Compares the cost of lines near the end and near the start of 100,000 triplets, each of which recomputes
/// its position.
void TripletLinesAtTheEndOverAtTheStart(benchmark::State& state) {
    constexpr std::int32_t Lines = 100'000;
    constexpr std::int32_t Share = Lines / 10;
    for (auto _ : state) {
        test::SimulatedProgram p;
        for (std::int32_t i = 0; i < Lines; ++i)
            p.App.List.Append("1/16", Melody[i % 8], "", "Tri");
        std::vector<Watch::time_point> starts;
        starts.reserve(Lines);
        test::RecordedPlayback recorded(p);
        recorded.OnLine = [&] {
            starts.push_back(Watch::now());
            if (starts.size() % 1000 == 0)
                p.Timeline.Clear();
        };
        recorded.Playback.OnRangeEnd = [&] { recorded.Playback.StopPlayButton_Click(); };
        recorded.Playback.PlayAllButton_Click();
        const double first = Seconds(starts[Share] - starts[0]).count();
        const double last = Seconds(starts[Lines - 1] - starts[Lines - 1 - Share]).count();
        state.counters["us_per_line_at_start"] = first / Share * 1e6;
        state.counters["us_per_line_at_end"] = last / Share * 1e6;
        state.counters["end_over_start"] = last / first;
    }
}
BENCHMARK(TripletLinesAtTheEndOverAtTheStart)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quavix
