// SPDX-License-Identifier: MIT
#include "playback/metronome.h"

#include <cmath>

#include "music/lengths.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

Metronome::Metronome(const SongFields& song, const ProgramState& state, PlaybackView& view,
                     ToneDispatcher& tones, ToneCode& code, Clock& time, Waiting& wait, DebugLog& log)
    : song_(song),
      state_(state),
      view_(view),
      tones_(tones),
      code_(code),
      time_(time),
      wait_(wait),
      log_(log) {
    state_.MusicIsPlaying.Watch([this](bool) { MakeWay(); });
    state_.StartIsAwaited.Watch([this](bool) { MakeWay(); });
}

/// Switches the metronome off while music plays or its start is awaited, because clicks would delay both.
void Metronome::MakeWay() {
    const bool isFree = !state_.MusicIsPlaying && !state_.StartIsAwaited;
    MetronomeButtonEnabled = isFree;
    if (!isFree && MetronomeIsOn)
        SwitchOff();
}

void Metronome::MetronomeButton_Click() {
    LogBlock block(log_, "MetronomeButton clicked");
    block.CloseOnError();
    if (MetronomeIsOn)
        SwitchOff();
    else if (running_ < MostNestedRuns)
        Run();
    else  // The innermost run has not noticed the switching off yet, and continues.
        SwitchOn();
}

void Metronome::SwitchOff() {
    MetronomeIsOn = false;
    log_.LogText("Metronome is OFF");
}

void Metronome::SwitchOn() {
    MetronomeIsOn = true;
    log_.LogText("Metronome is ON");
}

void Metronome::Run() {
    const ScopedCount running(running_);
    const ScopedValue on(MetronomeIsOn, true, false);
    log_.LogText("Metronome is ON");
    Timetable timetable{.Start = Now(), .PlayedBeats = 0, .Bpm = song_.BPM, .BeatInBar = 1};
    while (IsWanted()) {
        Click(timetable);
        NextBeatInBar(timetable);
        WaitForNextBeat(timetable);
        SkipMissedBeats(timetable);
        FollowTempo(timetable);
    }
}

void Metronome::Click(const Timetable& timetable) {
    constexpr double ClickMs = 20;
    constexpr double FirstBeatHz = 1000;
    constexpr double OtherBeatHz = 500;
    const ScopedValue shown(view_.BeepTextLabelVisible, true, false);
    tones_.Sound(Tone::OfFrequency(timetable.BeatInBar == 1 ? FirstBeatHz : OtherBeatHz, ClickMs));
}

void Metronome::NextBeatInBar(Timetable& timetable) const {
    ++timetable.PlayedBeats;
    if (++timetable.BeatInBar > song_.BeatsPerBar)
        timetable.BeatInBar = 1;
}

void Metronome::WaitForNextBeat(const Timetable& timetable) {
    constexpr std::int32_t SliceMs = 15;
    const Currency next = timetable.NextBeat();
    // Runs handlers even if the tempo leaves no time to wait, so that the user can still act.
    wait_.DoEvents();
    while (IsWanted() && Now() < next) {
        wait_.MsgWaitObj(SliceMs);
        code_.WriteWait(SliceMs);
    }
}

/// Skips beats that were missed while something else (a message box, say) held the thread.
void Metronome::SkipMissedBeats(Timetable& timetable) const {
    const Currency late = Now() - timetable.NextBeat();
    const double missed = std::floor(late.ToDouble() * timetable.Bpm / SecondsPerMinute);
    if (timetable.Bpm <= 0 || missed < 1)
        return;
    const std::int64_t beats = ToInt64(missed);
    timetable.PlayedBeats += beats;
    timetable.BeatInBar =
        static_cast<std::int32_t>((timetable.BeatInBar - 1 + beats) % song_.BeatsPerBar) + 1;
}

/// If the tempo has changed, restarts the timetable at the next beat.
void Metronome::FollowTempo(Timetable& timetable) const {
    if (timetable.Bpm == song_.BPM)
        return;
    timetable.Start = timetable.NextBeat();
    timetable.PlayedBeats = 0;
    timetable.Bpm = song_.BPM;
}

Currency Metronome::Timetable::NextBeat() const {
    return Start + Currency::FromDouble(Quotient(static_cast<double>(PlayedBeats) * SecondsPerMinute, Bpm));
}

Currency Metronome::Now() const {
    return Currency::FromDouble(Currency::FromUnits(time_.PerformanceCounter()) / state_.TickFreq);
}

}  // namespace quavix
