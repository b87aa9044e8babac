// SPDX-License-Identifier: MIT
#include "playback/circuit_bent.h"

#include <exception>

#include "midi/midi_notes.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

CircuitBent::CircuitBent(ModFields& mods, const ProgramState& state, ToneDispatcher& tones,
                         RandomNumbers& random, Timers& timers, EventBoundary& handlers, DebugLog& log)
    : mods_(mods),
      state_(state),
      tones_(tones),
      random_(random),
      log_(log),
      bendTimer_(timers, handlers, "BendTimer_Timer", [this] { BendTimer_Timer(); }) {
    mods_.UseCircuitBent.Ticked.Watch(
        handlers.Wrap("UseCircuitBentCheck_Click", [this] { UseCircuitBentCheck_Click(); }));
}

void CircuitBent::UseCircuitBentCheck_Click() {
    constexpr std::int32_t IntervalMs = 15;
    mods_.UseCircuitBent.InUse = mods_.UseCircuitBent.Ticked;
    if (mods_.UseCircuitBent.InUse)
        bendTimer_.Start(IntervalMs);
    else
        bendTimer_.Stop();
    log_.Text("UseCircuitBentCheck clicked - UseCircuitBent -> {}", LogFlag(mods_.UseCircuitBent.InUse));
}

void CircuitBent::BendTimer_Timer() {
    // A burst may be running, on an output whose tones run handlers. Or a start waits until all tones have
    // ended, for which continuous bursts would leave no gap.
    if (inBurst_ || state_.StartIsHeldUp)
        return;
    try {
        const ScopedFlag inBurst(inBurst_);
        Burst();
    } catch (const std::exception&) {
        mods_.UseCircuitBent.Ticked = false;  // otherwise the same error would recur at once
        throw;
    }
}

void CircuitBent::Burst() {
    constexpr int Notes = 15;
    constexpr double NoteMs = 15;
    constexpr double HighestMidiNote = 127;
    for (int i = 0; i < Notes && mods_.UseCircuitBent.InUse && !state_.ShuttingDown; ++i)
        tones_.Sound(ToneOfMidiNote(ToInt32(random_.Next() * HighestMidiNote), NoteMs));
}

}  // namespace quavix
