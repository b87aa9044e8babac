// SPDX-License-Identifier: MIT
#include <cstdint>
#include <vector>

#include <benchmark/benchmark.h>

#include "modules/midi_file/midi_file_module.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append32(Bytes& bytes, std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(number >> static_cast<unsigned>(shift)));
}

Bytes Header(std::uint16_t tracks) {
    return {'M',
            'T',
            'h',
            'd',
            0,
            0,
            0,
            6,
            0,
            1,
            static_cast<std::uint8_t>(tracks >> 8U),
            static_cast<std::uint8_t>(tracks),
            1,
            0xE0};
}

void AppendTrack(Bytes& file, const Bytes& content) {
    file.insert(file.end(), {'M', 'T', 'r', 'k'});
    Append32(file, static_cast<std::uint32_t>(content.size()));
    file.insert(file.end(), content.begin(), content.end());
}

/// Notes with running status, as sequencers write them.
Bytes FileOfNotes(std::uint8_t tracks, std::uint32_t eventsPerTrack) {
    Bytes file = Header(tracks);
    for (std::uint8_t track = 0; track < tracks; ++track) {
        Bytes content = {0, static_cast<std::uint8_t>(0x90 | (track & 0xF))};
        for (std::uint32_t i = 0; i + 1 < eventsPerTrack; ++i) {
            if (i > 0 && i % 3 == 0)
                content.insert(content.end(), {0x83, 0x60});
            else if (i > 0)
                content.push_back(10);
            content.insert(content.end(),
                           {static_cast<std::uint8_t>(30 + i % 64), static_cast<std::uint8_t>(i % 2 * 96)});
        }
        content.insert(content.end(), {0, 0xFF, 0x2F, 0});
        AppendTrack(file, content);
    }
    return file;
}

/// Exclusive messages that make the file big.
Bytes FileOfSize(std::size_t size, std::uint32_t message) {
    Bytes file = Header(1);
    Bytes content;
    while (content.size() < size) {
        content.insert(content.end(), {0, 0xF0, static_cast<std::uint8_t>(0x80 | message >> 7U),
                                       static_cast<std::uint8_t>(message & 0x7F)});
        content.insert(content.end(), message, 0x11);
    }
    AppendTrack(file, content);
    return file;
}

/// Tracks whose sizes are all wrong.
Bytes FileOfWrongSizes(std::size_t size) {
    Bytes file = Header(0xFFFF);
    while (file.size() < size) {
        file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 4, 0, 0x90, 60, 1});
        file.insert(file.end(), 750, 9);
    }
    return file;
}

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

void AMillionEventsInSixteenTracks(benchmark::State& state) {
    ReadAll(state, FileOfNotes(16, 62500));
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

}  // namespace
