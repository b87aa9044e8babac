// SPDX-License-Identifier: MIT
#include "playback/circuit_bent.h"

#include <exception>

#include "midi/midi_notes.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

CircuitBent::CircuitBent(MainFields& fields, ToneDispatcher& tones, RandomNumbers& random, Timers& timers,
                         EventBoundary& handlers, DebugLog& log)
    : fields_(fields), tones_(tones), random_(random), timers_(timers), handlers_(handlers), log_(log) {
    fields_.UseCircuitBentCheck.Watch(
        handlers_.Wrap("UseCircuitBentCheck_Click", [this] { UseCircuitBentCheck_Click(); }));
}

CircuitBent::~CircuitBent() {
    timers_.Stop(bendTimer_);
}

void CircuitBent::UseCircuitBentCheck_Click() {
    constexpr std::int32_t IntervalMs = 15;
    fields_.UseCircuitBent = fields_.UseCircuitBentCheck;
    timers_.Stop(bendTimer_);
    bendTimer_ = 0;
    if (fields_.UseCircuitBent) {
        bendTimer_ =
            timers_.Start(IntervalMs, handlers_.Wrap("BendTimer_Timer", [this] { BendTimer_Timer(); }));
    }
    log_.Text("UseCircuitBentCheck clicked - UseCircuitBent -> {}", LogFlag(fields_.UseCircuitBent));
}

void CircuitBent::BendTimer_Timer() {
    // In a burst, on an output whose tones let handlers run. Or somebody waits for the end of all tones,
    // which burst upon burst would not leave a gap for.
    if (inBurst_ || fields_.StartIsHeldUp)
        return;
    try {
        const ScopedFlag inBurst(inBurst_);
        Burst();
    } catch (const std::exception&) {
        fields_.UseCircuitBentCheck = false;  // or the same message would come again at once
        throw;
    }
}

void CircuitBent::Burst() {
    constexpr int Notes = 15;
    constexpr double NoteMs = 15;
    constexpr double HighestMidiNote = 127;
    for (int i = 0; i < Notes && fields_.UseCircuitBent && !fields_.ShuttingDown; ++i)
        tones_.Sound(ToneOfMidiNote(ToInt32(random_.Next() * HighestMidiNote), NoteMs));
}

}  // namespace quavix
