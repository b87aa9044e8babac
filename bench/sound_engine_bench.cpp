// SPDX-License-Identifier: MIT
// Measures mixing in blocks of 16 frames, as the program sets them, through the engine's public calls.
#include <ctime>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "modules/sound_engine/sound_engine.h"

namespace quavix {
namespace {

constexpr unsigned int Block = 16;
constexpr double Rate = 48000.0;

/// An engine that mixes a block for each update and discards it.
class Engine {
  public:
    explicit Engine(int channels = 16, int output = SOUND_OUTPUT_NONE_BY_UPDATE, const char* file = nullptr) {
        FMOD_System_Create(&System);
        FMOD_System_SetOutput(System, output);
        FMOD_System_SetDSPBufferSize(System, Block, 256);
        FMOD_System_Init(System, channels, 0, const_cast<char*>(file));
    }
    ~Engine() { FMOD_System_Release(System); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    SoundUnit* Unit(int type) const {
        SoundUnit* unit = nullptr;
        FMOD_System_CreateDSPByType(System, type, &unit);
        return unit;
    }

    SoundChannel* Play(int waveform, float rate, SoundGroup* group = nullptr) const {
        SoundUnit* unit = Unit(SOUND_OSCILLATOR);
        FMOD_DSP_SetParameter(unit, SOUND_OSCILLATOR_TYPE, static_cast<float>(waveform));
        FMOD_DSP_SetParameter(unit, SOUND_OSCILLATOR_RATE, rate);
        SoundChannel* channel = nullptr;
        FMOD_System_PlayDSP(System, SOUND_CHANNEL_FREE, unit, 0, &channel);
        if (group != nullptr)
            FMOD_Channel_SetChannelGroup(channel, group);
        return channel;
    }

    SoundGroup* Group(SoundGroup* in = nullptr) const {
        SoundGroup* group = nullptr;
        FMOD_System_CreateChannelGroup(System, "group", &group);
        if (in != nullptr)
            FMOD_ChannelGroup_AddGroup(in, group);
        return group;
    }

    SoundGroup* Master() const {
        SoundGroup* group = nullptr;
        FMOD_System_GetMasterChannelGroup(System, &group);
        return group;
    }

    /// Mixes during the measurement. "x_realtime": seconds of sound per second of a core.
    void Measure(benchmark::State& state) const {
        const std::clock_t start = std::clock();
        for (auto _ : state)
            FMOD_System_Update(System);
        const double worked = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        const double blockSeconds = Block / Rate;
        state.counters["x_realtime"] =
            benchmark::Counter(blockSeconds, benchmark::Counter::kIsIterationInvariantRate);
        state.SetLabel(fmt::format(
            "{:.3f} % of a core", 100.0 * worked / (blockSeconds * static_cast<double>(state.iterations()))));
    }

    SoundSystem* System = nullptr;
};

void Nothing(benchmark::State& state) {
    const Engine engine;
    engine.Measure(state);
}
BENCHMARK(Nothing);

/// Plays 440 Hz as the program does.
void Tone(benchmark::State& state) {
    const Engine engine;
    const auto waveform = static_cast<int>(state.range(0));
    FMOD_Channel_SetFrequency(engine.Play(waveform, waveform == SOUND_SQUARE ? 8000.0F : 4000.0F), 5277.888F);
    engine.Measure(state);
}
BENCHMARK(Tone)->ArgName("waveform")->DenseRange(SOUND_SINE, SOUND_NOISE);

void ToneToWavFile(benchmark::State& state) {
    const Engine engine(2, SOUND_OUTPUT_WAV_BY_UPDATE, "/dev/null");
    FMOD_Channel_SetFrequency(engine.Play(SOUND_SQUARE, 8000.0F), 5277.888F);
    engine.Measure(state);
}
BENCHMARK(ToneToWavFile);

void ToneThroughFilters(benchmark::State& state) {
    const Engine engine;
    engine.Play(SOUND_FALLING_SAW, 120.0F);
    for (int i = 0; i < state.range(0); ++i) {
        SoundUnit* filter = engine.Unit(SOUND_EQUALISER);
        FMOD_DSP_SetParameter(filter, SOUND_EQUALISER_GAIN, 2.0F);
        FMOD_ChannelGroup_AddDSP(engine.Master(), filter);
    }
    engine.Measure(state);
}
BENCHMARK(ToneThroughFilters)->ArgName("filters")->Arg(0)->Arg(1)->Arg(4)->Arg(8);

/// Plays the whole voice: saw and noise through the cutoff and four formants, and the sibilance chain.
void Voice(benchmark::State& state) {
    const bool sibilant = state.range(0) != 0;
    const Engine engine;
    SoundGroup* everything = engine.Group();
    SoundGroup* voice = engine.Group(everything);
    SoundUnit* cutoff = engine.Unit(SOUND_LOW_PASS);
    FMOD_DSP_SetParameter(cutoff, SOUND_LOW_PASS_CUTOFF, 6000.0F);
    FMOD_DSP_SetParameter(cutoff, SOUND_LOW_PASS_RESONANCE, 10.0F);
    for (const float centre : {1180.0F, 1675.0F, 2558.0F, 3355.0F}) {
        SoundUnit* formant = engine.Unit(SOUND_EQUALISER);
        FMOD_DSP_SetParameter(formant, SOUND_EQUALISER_CENTRE, centre);
        FMOD_DSP_SetParameter(formant, SOUND_EQUALISER_GAIN, 3.0F);
        FMOD_ChannelGroup_AddDSP(voice, formant);
        FMOD_DSP_AddInput(formant, cutoff);
    }
    FMOD_ChannelGroup_AddDSP(voice, cutoff);
    engine.Play(SOUND_FALLING_SAW, 120.0F, engine.Group(voice));
    engine.Play(SOUND_NOISE, 4000.0F, engine.Group(voice));
    SoundGroup* sibilance = engine.Group(everything);
    SoundUnit* before = nullptr;
    for (int i = 0; i < 4; ++i) {
        SoundUnit* filter = engine.Unit(SOUND_EQUALISER);
        FMOD_DSP_SetParameter(filter, SOUND_EQUALISER_GAIN, 2.0F);
        if (before == nullptr)
            FMOD_ChannelGroup_AddDSP(sibilance, filter);
        else
            FMOD_DSP_AddInput(filter, before);
        before = filter;
    }
    SoundChannel* noise = engine.Play(SOUND_TRIANGLE, 4000.0F, sibilance);
    FMOD_Channel_SetPaused(noise, sibilant ? 0 : 1);
    engine.Measure(state);
}
BENCHMARK(Voice)->ArgName("sibilant")->Arg(0)->Arg(1);

/// Measures a change between two blocks.
void ToneThatChangesWithEveryBlock(benchmark::State& state) {
    const Engine engine;
    SoundChannel* channel = engine.Play(SOUND_SQUARE, 8000.0F);
    float frequency = 5000.0F;
    for (auto _ : state) {
        frequency = frequency < 10000.0F ? frequency + 1.0F : 5000.0F;
        FMOD_Channel_SetFrequency(channel, frequency);
        FMOD_System_Update(engine.System);
    }
}
BENCHMARK(ToneThatChangesWithEveryBlock);

}  // namespace
}  // namespace quavix
