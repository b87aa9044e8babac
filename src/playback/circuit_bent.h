// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"
#include "playback/tone_dispatcher.h"
#include "ports/random_numbers.h"
#include "shell/debug_log.h"
#include "shell/event_timer.h"

namespace quavix {

/// The circuit-bent mode: endless bursts of random notes. Switched by UseCircuitBentCheck, which it watches
/// during the whole lifetime of the fields; it must live as long.
class CircuitBent {
  public:
    CircuitBent(ModFields& mods, const ProgramState& state, ToneDispatcher& tones, RandomNumbers& random,
                Timers& timers, EventBoundary& handlers, DebugLog& log);

  private:
    void UseCircuitBentCheck_Click();
    void BendTimer_Timer();
    void Burst();

    ModFields& mods_;
    const ProgramState& state_;
    ToneDispatcher& tones_;
    RandomNumbers& random_;
    DebugLog& log_;
    EventTimer bendTimer_;
    bool inBurst_ = false;
};

}  // namespace quavix
