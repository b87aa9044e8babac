// SPDX-License-Identifier: MIT
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "songfile/song_format.h"
#include "support/songs_on_disk.h"

namespace quavix {
namespace {

constexpr std::int32_t Lines = 1'000'000;

/// Loads and saves with real files; questions have no answers.
struct SongBench : test::SongsOnDisk {
    void Save(const std::string& name) {
        std::error_code error;
        const auto file = Disk->OpenForOutput(name, error);
        if (!file || WriteSong(Fields.Song, Fields.Entry, List, *file) || file->Commit())
            std::abort();
    }
};

/// A song of a million lines in a file that is deleted at the end.
class SongFile {
  public:
    SongFile() {
        constexpr std::array<const char*, 4> Lengths{"Quarter", "Half", "1/8", "1/16"};
        constexpr std::array<const char*, 5> Letters{"C", "E", "F#", "G", "A#"};
        SongBench bench;
        for (std::int32_t i = 0; i < Lines; ++i) {
            const auto n = static_cast<std::size_t>(i) * 7919;
            const std::string note = Letters[n % Letters.size()] + std::to_string(n / 5 % 7 + 1);
            bench.List.Append(Lengths[n % Lengths.size()], note, n % 3 == 0 ? "A3" : "",
                              n % 11 == 0 ? "Dot" : "");
        }
        bench.Save(name_);
    }
    ~SongFile() { std::filesystem::remove(name_); }
    SongFile(const SongFile&) = delete;
    SongFile& operator=(const SongFile&) = delete;

    const std::string& Name() const { return name_; }

  private:
    std::string name_ =
        (std::filesystem::temp_directory_path() / ("quavix-bench-" + std::to_string(::getpid()) + ".QVX"))
            .string();
};

/// Returns the peak memory of `work` in bytes, measured in its own process.
double PeakMemory(const std::function<void()>& work) {
    constexpr double BytesPerKiB = 1024;
    ::malloc_trim(0);  // free memory of earlier passes would hide the memory of the work
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    return status == 0 ? static_cast<double>(usage.ru_maxrss) * BytesPerKiB : 0;
}

void CountLines(benchmark::State& state) {
    state.counters["lines/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * Lines, benchmark::Counter::kIsRate);
}

void LoadAMillionLines(benchmark::State& state) {
    const SongFile file;
    for ([[maybe_unused]] auto pass : state) {
        SongBench bench;
        bench.Reader.ActuallyLoadMusic(file.Name());
        if (bench.List.Count() != Lines)
            state.SkipWithError("lines are missing");
    }
    CountLines(state);
    const double idle = PeakMemory([] { const SongBench bench; });
    const double loaded = PeakMemory([&] {
        SongBench bench;
        bench.Reader.ActuallyLoadMusic(file.Name());
    });
    state.counters["peak_bytes/line"] = (loaded - idle) / Lines;
    state.counters["file_bytes/line"] = static_cast<double>(std::filesystem::file_size(file.Name())) / Lines;
}
BENCHMARK(LoadAMillionLines)->Unit(benchmark::kMillisecond);

/// Loads one line of 100 MB, as text (0) or with a byte at its end that is not UTF-8 (1).
void LoadALongLine(benchmark::State& state) {
    constexpr std::size_t Length = 100'000'000;
    const SongFile file;
    {
        std::ofstream song(file.Name(), std::ios::binary);
        song << "Quavix by Dastrel-204 file format\r\nMUSICLISTSTART\r\nHalf C4 - "
             << std::string(Length, 'x') << (state.range(0) == 0 ? "" : "\xE9");
    }
    for ([[maybe_unused]] auto pass : state) {
        SongBench bench;
        bench.Reader.ActuallyLoadMusic(file.Name());
    }
    const double idle = PeakMemory([] { const SongBench bench; });
    const double loaded = PeakMemory([&] {
        SongBench bench;
        bench.Reader.ActuallyLoadMusic(file.Name());
    });
    state.counters["peak_memory/file"] = (loaded - idle) / static_cast<double>(Length);
}
BENCHMARK(LoadALongLine)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void SaveAMillionLines(benchmark::State& state) {
    const SongFile file;
    SongBench bench;
    bench.Reader.ActuallyLoadMusic(file.Name());
    for ([[maybe_unused]] auto pass : state)
        bench.Save(file.Name());
    CountLines(state);
    const double idle = PeakMemory([] {});
    const double saved = PeakMemory([&] { bench.Save(file.Name()); });
    state.counters["peak_bytes/line"] = (saved - idle) / Lines;
}
BENCHMARK(SaveAMillionLines)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quavix
