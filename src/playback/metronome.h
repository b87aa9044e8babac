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

/// The metronome: clicks at the tempo on an absolute timetable, higher on the first beat of each bar. A new
/// tempo applies from the next beat on. While music plays, or its synchronized start is awaited, the
/// metronome is off and its button disabled, because each needs the thread. Watches the fields during their
/// whole lifetime, and must live as long.
class Metronome {
  public:
    Metronome(const SongFields& song, const ProgramState& state, PlaybackView& view, ToneDispatcher& tones,
              ToneCode& code, Clock& time, Waiting& wait, DebugLog& log);

    Watched<bool> MetronomeIsOn{false};
    Watched<bool> MetronomeButtonEnabled{true};

    /// Switches the metronome on, and returns when it is off again; or switches it off, and returns at once.
    /// MetronomeIsOn has the state. With MostNestedRuns nested runs, switching on makes the innermost one
    /// continue, and returns at once. A tempo of 0 raises DivisionByZero after the first click.
    void MetronomeButton_Click();

  private:
    /// Position of the clicks in time and in the bar.
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
