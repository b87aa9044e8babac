// SPDX-License-Identifier: MIT
// Measures a step of the held-note cycler without its tone.
#include <benchmark/benchmark.h>

#include "midi/held_note_cycler.h"
#include "shell/debug_log.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace {

using namespace quavix;

class NoTones : public ToneOutput {
  public:
    void Sound(const Tone& tone) override {
        benchmark::DoNotOptimize(tone.Text.data());
        benchmark::DoNotOptimize(tone.DurationMs);
    }
};

class Form final : public UsingForm {
  public:
    using UsingForm::UsingForm;
};

/// Arguments: number of held notes; 1 if the grid is shown.
void Step(benchmark::State& state) {
    SimulatedTime time;
    Timeline timeline;
    SimulatedMessageBoxes boxes(time, timeline);
    SimulatedFiles files;
    DebugLog log(files, time, "log");
    EventBoundary handlers(boxes, log);
    MainFields fields;
    NoTones tones;
    RecordedSoundLibrary library(time, timeline);
    FmodErrors errors(boxes, log);
    FmodEngine engine(library, errors, log);
    Waiting wait(time, time);
    FmodToneGenerator generator({fields.Mods, fields.Output, engine, library, errors, wait, log, {}});
    HeldNoteCycler cycler(fields.Song, fields.View, tones, generator);
    Form form(handlers);
    form.AutoTimeCheck = true;
    form.SaveCPUCheck = state.range(1) == 0;
    for (std::int32_t note = 0; note < state.range(0); ++note)
        form.TakeMessage(0x90, note, 64);
    for (auto _ : state)
        cycler.PlayLiveMIDIInput(form);
}

BENCHMARK(Step)
    ->ArgNames({"held", "grid"})
    ->Args({0, 1})
    ->Args({3, 1})
    ->Args({32, 1})
    ->Args({128, 1})
    ->Args({128, 0});

}  // namespace
