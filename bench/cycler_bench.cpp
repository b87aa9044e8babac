// SPDX-License-Identifier: MIT
// What a step of the held-note cycler costs beside its tone.
#include <benchmark/benchmark.h>

#include "midi/held_note_cycler.h"
#include "shell/debug_log.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace {

using namespace quavix;

class NoTones : public Tones {
  public:
    void UniBeep(std::string& noteString, double duration, const ToneOptions&) override {
        benchmark::DoNotOptimize(noteString.data());
        benchmark::DoNotOptimize(duration);
    }
};

class NoGenerator : public ToneGenerator {
  public:
    void FMODBeep(double, double, bool, bool) override {}
    void FMODBeepStop() override {}
};

class Form final : public UsingForm {
  public:
    using UsingForm::UsingForm;
};

/// Arguments: held notes; whether the grid is shown.
void Step(benchmark::State& state) {
    SimulatedTime time;
    Timeline timeline;
    SimulatedMessageBoxes boxes(time, timeline);
    SimulatedFiles files;
    DebugLog log(files, time, "log");
    EventBoundary handlers(boxes, log);
    MainFields fields;
    NoTones tones;
    NoGenerator generator;
    HeldNoteCycler cycler(fields, tones, generator);
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
