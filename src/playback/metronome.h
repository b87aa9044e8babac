// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "music/main_fields.h"
#include "playback/tone_code.h"
#include "playback/tone_dispatcher.h"
#include "ports/clock.h"
#include "shell/currency.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// Clicks at the tempo against an absolute timetable, higher on the first beat of each bar. A new tempo holds
/// from the next beat on. Music that starts to play, or a wait for its synchronized start, switches it off,
/// and its button is disabled meanwhile: each wants the thread for itself. Watches the fields for as long as
/// they live, and must live as long.
class Metronome {
  public:
    Metronome(const SongFields& song, const ProgramState& state, PlaybackView& view, ToneDispatcher& tones,
              ToneCode& code, Clock& time, Waiting& wait, DebugLog& log);
    Metronome(const Metronome&) = delete;
    Metronome& operator=(const Metronome&) = delete;

    Watched<bool> MetronomeIsOn{false};
    Watched<bool> MetronomeButtonEnabled{true};

    /// Switches it on, and returns when it has been switched off again; or switches it off, and returns at
    /// once. MetronomeIsOn says which. Switched on in the waits of MostNestedRuns that are about to end, it
    /// returns at once, and the innermost one goes on. A tempo of 0 raises DivisionByZero after the first
    /// click.
    void MetronomeButton_Click();

  private:
    /// Place of the clicks in time and in the bar.
    struct Timetable {
        Currency Start;  // seconds
        std::int64_t PlayedBeats;
        std::int32_t Bpm;
        std::int32_t BeatInBar;

        Currency NextBeat() const;
    };

    void MakeWay();
    void Run();
    void Click(const Timetable& timetable);
    void NextBeatInBar(Timetable& timetable) const;
    void WaitForNextBeat(const Timetable& timetable);
    void SkipMissedBeats(Timetable& timetable) const;
    void FollowTempo(Timetable& timetable) const;
    void SwitchOn();
    void SwitchOff();
    bool IsWanted() const { return MetronomeIsOn && !state_.ShuttingDown; }
    Currency Now() const;

    const SongFields& song_;
    const ProgramState& state_;
    PlaybackView& view_;
    ToneDispatcher& tones_;
    ToneCode& code_;
    Clock& time_;
    Waiting& wait_;
    DebugLog& log_;
    int running_ = 0;
};

}  // namespace quavix
