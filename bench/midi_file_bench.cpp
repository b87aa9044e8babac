// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

#include <benchmark/benchmark.h>

#include "generated_midi_file.h"
#include "midi/midi_event_list.h"
#include "modules/midi_file/midi_file_module.h"
#include "platform/common/module_midi_file_reader.h"

namespace {

std::size_t allocated = 0;
std::size_t mostAllocated = 0;

}  // namespace

// Stores the size in front of every allocation, to know the peak memory.
void* operator new(std::size_t size) {
    constexpr std::size_t Head = alignof(std::max_align_t);
    auto* const block = static_cast<std::byte*>(std::malloc(size + Head));
    if (block == nullptr)
        throw std::bad_alloc();
    *reinterpret_cast<std::size_t*>(block) = size;
    allocated += size;
    mostAllocated = std::max(mostAllocated, allocated);
    return block + Head;
}

void operator delete(void* pointer) noexcept {
    constexpr std::size_t Head = alignof(std::max_align_t);
    if (pointer == nullptr)
        return;
    std::byte* const block = static_cast<std::byte*>(pointer) - Head;
    allocated -= *reinterpret_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* pointer, std::size_t) noexcept {
    operator delete(pointer);
}

namespace {

using quavix::bench::Bytes;

/// Returns a file of exclusive messages, which make it large.
Bytes FileOfSize(std::size_t size, std::uint32_t message) {
    Bytes file = quavix::bench::Header(1);
    Bytes content;
    while (content.size() < size) {
        content.insert(content.end(), {0, 0xF0, static_cast<std::uint8_t>(0x80 | message >> 7U),
                                       static_cast<std::uint8_t>(message & 0x7F)});
        content.insert(content.end(), message, 0x11);
    }
    quavix::bench::AppendTrack(file, content);
    return file;
}

/// Returns a file whose track sizes are all wrong.
Bytes FileOfWrongSizes(std::size_t size) {
    Bytes file = quavix::bench::Header(0xFFFF);
    while (file.size() < size) {
        file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 4, 0, 0x90, 60, 1});
        file.insert(file.end(), 750, 9);
    }
    return file;
}

/// Measures the module's reading alone.
void ReadAll(benchmark::State& state, const Bytes& file) {
    std::uint64_t events = 0;
    QuavixMidiFileSink sink{};
    sink.User = &events;
    sink.Events = [](void* user, std::uint32_t, const QuavixMidiFileEvent* block, std::size_t count) {
        benchmark::DoNotOptimize(block);
        *static_cast<std::uint64_t*>(user) += count;
        return 0;
    };
    for (auto _ : state)
        benchmark::DoNotOptimize(QuavixMidiFileRead(file.data(), file.size(), &sink, nullptr, 0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(events));
}

/// Measures the way from the bytes to the finished list in order of time.
void ListAll(benchmark::State& state, const Bytes& file) {
    quavix::ModuleMidiFileReader reader(QUAVIX_MIDI_FILE_MODULE);
    std::size_t events = 0;
    mostAllocated = allocated;
    const std::size_t before = allocated;
    for (auto _ : state) {
        quavix::MidiFileContent content;
        std::string detail;
        if (reader.Read(quavix::bench::View(file), {}, content, detail) != quavix::MidiFileResult::Read) {
            state.SkipWithError(detail.c_str());
            return;
        }
        const auto list = DecodeMidiFile(std::move(content), [](const std::string&) { return true; });
        benchmark::DoNotOptimize(list->data());
        events = list->size();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(events));
    state.counters["events"] = static_cast<double>(events);
    state.counters["peak_bytes_per_event"] =
        static_cast<double>(mostAllocated - before) / static_cast<double>(events);
}

void AMillionEventsInSixteenTracks(benchmark::State& state) {
    ReadAll(state, quavix::bench::FileOfNotes(16, 62500));
}
BENCHMARK(AMillionEventsInSixteenTracks)->Unit(benchmark::kMillisecond);

void FiftyMegabytesOfExclusiveMessages(benchmark::State& state) {
    ReadAll(state, FileOfSize(50'000'000, 600));
}
BENCHMARK(FiftyMegabytesOfExclusiveMessages)->Unit(benchmark::kMillisecond);

void FiftyMegabytesOfTracksWithWrongSizes(benchmark::State& state) {
    ReadAll(state, FileOfWrongSizes(50'000'000));
}
BENCHMARK(FiftyMegabytesOfTracksWithWrongSizes)->Unit(benchmark::kMillisecond);

void BytesToListOfAMillionEventsInSixteenTracks(benchmark::State& state) {
    ListAll(state, quavix::bench::FileOfNotes(16, 62500));
}
BENCHMARK(BytesToListOfAMillionEventsInSixteenTracks)->Unit(benchmark::kMillisecond);

/// The argument is the number of tempo changes.
void BytesToListWithTempoChanges(benchmark::State& state) {
    ListAll(state, quavix::bench::FileOfNotes(16, 62500, static_cast<std::uint32_t>(state.range(0))));
}
BENCHMARK(BytesToListWithTempoChanges)->Arg(100)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// Uses the greatest possible number of tracks.
void BytesToListOfAMillionEventsInVeryManyTracks(benchmark::State& state) {
    Bytes file = quavix::bench::Header(0xFFFF);
    for (std::uint32_t track = 0; track < 0xFFFF; ++track) {
        Bytes content = {0, 0x90};
        for (std::uint8_t i = 0; i < 14; ++i)
            content.insert(content.end(), {static_cast<std::uint8_t>(track % 64 + i), 96, i});
        content.insert(content.end(), {60, 0, 0, 0xFF, 0x2F, 0});
        quavix::bench::AppendTrack(file, content);
    }
    ListAll(state, file);
}
BENCHMARK(BytesToListOfAMillionEventsInVeryManyTracks)->Unit(benchmark::kMillisecond);

}  // namespace
