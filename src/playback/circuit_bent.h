// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"
#include "playback/tone_dispatcher.h"
#include "ports/random_numbers.h"
#include "ports/timers.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The circuit-bent mode: endless bursts of random notes. Switched by UseCircuitBentCheck, which it watches
/// during the whole lifetime of the fields; it must live as long.
class CircuitBent {
  public:
    CircuitBent(ModFields& mods, const ProgramState& state, ToneDispatcher& tones, RandomNumbers& random,
                Timers& timers, EventBoundary& handlers, DebugLog& log);
    ~CircuitBent();
    CircuitBent(const CircuitBent&) = delete;
    CircuitBent& operator=(const CircuitBent&) = delete;

  private:
    void UseCircuitBentCheck_Click();
    void BendTimer_Timer();
    void Burst();

    ModFields& mods_;
    const ProgramState& state_;
    ToneDispatcher& tones_;
    RandomNumbers& random_;
    Timers& timers_;
    EventBoundary& handlers_;
    DebugLog& log_;
    /// Runs only while the mode is on, so that the program can sleep otherwise.
    Timers::Id bendTimer_ = 0;
    bool inBurst_ = false;
};

}  // namespace quavix
