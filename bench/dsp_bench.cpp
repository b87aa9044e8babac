// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <ostream>
#include <span>
#include <streambuf>
#include <vector>

#include <benchmark/benchmark.h>

#include "dsp/square_wave.h"
#include "dsp/wav.h"

namespace quavix {
namespace {

constexpr std::int32_t Rate = 48000;
constexpr std::size_t BlockSize = 2048;

class NullBuffer : public std::streambuf {
  protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        benchmark::DoNotOptimize(text);
        return size;
    }
};

/// "x_realtime": seconds of sound made per second of this processor.
void ReportSpeed(benchmark::State& state, std::int64_t samplesPerRun) {
    const double seconds = static_cast<double>(samplesPerRun) / Rate;
    state.counters["x_realtime"] = benchmark::Counter(seconds, benchmark::Counter::kIsIterationInvariantRate);
}

void SteadyTone(benchmark::State& state) {
    constexpr std::int64_t Length = 60 * Rate;
    std::vector<float> block(BlockSize);
    for (auto _ : state) {
        SquareWave wave(static_cast<std::int32_t>(state.range(0)), Rate, Length);
        while (wave.Left() > 0) {
            wave.Render(block);
            benchmark::DoNotOptimize(block.data());
        }
    }
    ReportSpeed(state, Length);
}
BENCHMARK(SteadyTone)->ArgName("Hz")->Arg(110)->Arg(440)->Arg(3951);

void MelodyToWav(benchmark::State& state) {
    constexpr std::array<std::int32_t, 8> Pitches = {262, 294, 330, 349, 392, 440, 494, 523};
    constexpr std::array<std::int32_t, 5> Milliseconds = {50, 125, 250, 100, 200};
    constexpr int Tones = 400;
    std::vector<float> block(BlockSize);
    std::int64_t frames = 0;
    for (auto _ : state) {
        NullBuffer nowhere;
        std::ostream stream(&nowhere);
        WavWriter writer(stream, Rate, 1);
        for (std::size_t i = 0; i < Tones; i++) {
            std::int64_t left = Milliseconds[i % Milliseconds.size()] * std::int64_t{Rate} / 1000;
            SquareWave wave(Pitches[i % Pitches.size()], Rate, left);
            while (left > 0) {
                const std::size_t size = std::min(block.size(), static_cast<std::size_t>(left));
                wave.Render(std::span(block).first(size));
                writer.Write(std::span(block).first(size));
                left -= static_cast<std::int64_t>(size);
            }
        }
        frames = writer.Frames();
    }
    ReportSpeed(state, frames);
}
BENCHMARK(MelodyToWav);

}  // namespace
}  // namespace quavix
