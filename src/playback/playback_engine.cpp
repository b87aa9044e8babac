// SPDX-License-Identifier: MIT
#include "playback/playback_engine.h"

#include <utility>

#include "music/lengths.h"
#include "music/selection.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

PlaybackEngine::PlaybackEngine(PlaybackParts parts) : p_(std::move(parts)), timetableBpm_(p_.Song.BPM) {
    p_.Song.BPM.State().Watch([this](const SettingState&) { TempoChanged(); });
}

void PlaybackEngine::PlayMusic(std::int32_t& startPoint, std::int32_t& endPoint, bool onlyThisLine) {
    const auto end = [this] {
        p_.State.MusicIsPlaying = false;
        AfterPlayMusic();
        p_.Log.LogIndentDec("PlayMusic() - END");
    };
    try {
        p_.Log.LogIndentInc("PlayMusic() - START");
        p_.State.MusicIsPlaying = true;
        BeforePlayMusic();
        if (PrepareRange(startPoint, endPoint)) {
            Run run{startPoint, endPoint, onlyThisLine, startPoint - 1};
            while (p_.State.MusicIsPlaying && PlayLine(run)) {
            }
        }
    } catch (const std::exception&) {
        // The window's controls must leave their playback state, even if the log has failed.
        p_.View.BeepTextLabelVisible = false;
        EnableCommonControls(true);
        EnableStopping(false);
        end();
        throw;
    }
    end();
}

bool PlaybackEngine::PrepareRange(std::int32_t startPoint, std::int32_t& endPoint) {
    p_.Log.Text("StartPoint = {}", startPoint);
    p_.Log.Text("EndPoint = {}", endPoint);
    ReadClockWithLog();
    startTickTime_ = currentTickTime_;
    p_.Log.Text("StartTickTime = {}", startTickTime_.ToText());
    playedBeats_ = {};
    timetableBpm_ = p_.Song.BPM;
    if (!DoesIndexExist(p_.List, startPoint)) {
        Message(
            fmt::format("StartPoint is {}\nHowever, that line doesn't exist.\n(Exiting sub)", startPoint));
        return false;
    }
    if (!DoesIndexExist(p_.List, endPoint)) {
        ShowEndPointMessages(endPoint);
        return false;
    }
    ShowStartOf(startPoint);
    return true;
}

/// Plays the next line. Returns false if playback has to end.
bool PlaybackEngine::PlayLine(Run& run) {
    ++run.CurrentLine;
    if (DoesIndexExist(p_.List, run.CurrentLine)) {
        p_.List.Select(run.CurrentLine);
        p_.List.EnsureVisible(run.CurrentLine);
        p_.DottedTriplet.UpdateModButtons();
    }
    if (!DoesIndexExist(p_.List, run.EndPoint))
        ShowEndPointMessages(run.EndPoint);
    // The message boxes run handlers, so check again that the line exists.
    if (run.CurrentLine > run.EndPoint || !DoesIndexExist(p_.List, run.CurrentLine)) {
        Message(fmt::format(
            "EndPoint is {}\nHowever, somehow this program now is about to try to look at line {}.\n"
            "(Stopping playing)",
            run.EndPoint, run.CurrentLine));
        return false;
    }
    const Line line = ReadLine(run.CurrentLine);
    if (p_.Mods.UseVoice.Ticked)
        SetVoicePitch(line);
    CatchUpPosition(run);
    p_.LineStarts();
    ReadClockWithLog();
    p_.Log.Text("CurrentTickTime = {}", currentTickTime_.ToText());
    SoundLine(run, line);
    SilenceGeneratorInRest(line);
    if (!p_.State.MusicIsPlaying)
        return false;
    if (p_.Position.NoUpdateCheck)
        run.PositionStoodStill = true;
    else if (!run.OnlyThisLine)
        UpdatePosition(run, line);
    if (!WaitForNextLine(run, line))
        return false;
    if (run.CurrentLine == run.EndPoint)
        EndOfRange(run);
    p_.Log.LogText("Respond to any input");
    p_.Wait.DoEvents();
    return true;
}

void PlaybackEngine::ShowEndPointMessages(std::int32_t& endPoint) {
    Message(fmt::format(
        "EndPoint is {}\nHowever, that line doesn't exist.\n(Changing it to last line in the list)",
        endPoint));
    endPoint = p_.List.Count();
    Message(fmt::format("EndPoint changed to {}", endPoint));
}

PlaybackEngine::Line PlaybackEngine::ReadLine(std::int32_t row) {
    MusicLine text = p_.List.Line(row);
    Line line;
    line.Length = Currency::FromDouble(GetEquivalentLength(text.Length, text.Mod) * BeatsPerWholeNote);
    line.IsTriplet = text.Mod.find("tri") != std::string::npos;
    line.Note1 = Tone::OfText(text.Note1);
    line.Note2 = Tone::OfText(text.Note2);
    p_.Log.Text("CurrentLineLength = {}", line.Length.ToText());
    p_.Log.Text("CurrentNote1 = \"{}\"", line.Note1.Text);
    p_.Log.Text("CurrentNote2 = \"{}\"", line.Note2.Text);
    return line;
}

void PlaybackEngine::SetVoicePitch(const Line& line) {
    const LogBlock block(p_.Log, "'Setting voice to correct pitch' section");
    if (line.Note2.Text.empty()) {
        p_.Log.LogText("VoiceMainForm.ChangeVoiceVol 0");
        p_.Singer.ChangeVoiceVol(0);
    } else {
        constexpr double VolumeScale = 10000;
        constexpr double Tuning = 1.08;
        const double volume = p_.Output.VoiceVolSlider / VolumeScale;
        p_.Log.Text("VoiceMainForm.ChangeVoiceVol {}", NumberText(volume));
        p_.Singer.ChangeVoiceVol(volume);
        line.Note2.WarnIfUnknown(p_.Boxes);
        const double pitch = Currency::FromDouble(line.Note2.Frequency * Tuning).ToDouble() / 4;
        p_.Log.Text("VoiceMainForm.ChangeBaseFreq {}", NumberText(pitch));
        p_.Singer.ChangeBaseFreq(pitch);
    }
}

void PlaybackEngine::SoundLine(Run& run, const Line& line) {
    const bool play1 = run.OnlyThisLine ? p_.Song.ClickPlayNote1Check : p_.Song.PlayNote1Check;
    const bool play2 = run.OnlyThisLine ? p_.Song.ClickPlayNote2Check : p_.Song.PlayNote2Check;
    const bool sounds1 = play1 && !line.Note1.Text.empty();
    const bool sounds2 = play2 && !line.Note2.Text.empty();
    if (sounds1 && sounds2)
        SoundAlternating(run, line);
    else if (sounds1)
        SoundSingleNote(line.Note1, line);
    else if (sounds2)
        SoundSingleNote(line.Note2, line);
}

void PlaybackEngine::SoundSingleNote(const Tone& note, const Line& line) {
    // Computed from whole units, so that halves of a millisecond are exact.
    constexpr double UnitsPerMs = Currency::Scale / 1000.0;
    const Currency duration = TimeAtBeat(SoundingBeats(line)) - currentTickTime_;
    const double durationMs = static_cast<double>(duration.Units()) / UnitsPerMs;
    if (durationMs <= 0)
        return;
    const ScopedValue shown(p_.View.NotesSounding, SoundingNotes{.Note1 = note.Text}, SoundingNotes());
    Sound(note, durationMs, false);
}

void PlaybackEngine::SoundAlternating(Run& run, const Line& line) {
    const LogBlock block(p_.Log, "Alternating section");
    const Currency beepLength = SoundingBeats(line);
    p_.Log.Text("BeepLength = {}", beepLength.ToText());
    if (p_.Song.NoteSilenceRatio < parameter::NoteSilenceRatio.Highest)
        run.AlternationStep = Currency::FromDouble(p_.Song.AlternateTime / 1000.0);
    const Currency step = run.AlternationStep;
    const ScopedValue shown(p_.View.NotesSounding, SoundingNotes{line.Note1.Text, line.Note2.Text},
                            SoundingNotes());
    // Tones of length 0 are silent, and would hold the thread for the whole line.
    while (p_.Song.AlternateTime > 0 && currentTickTime_ + step < TimeAtBeat(beepLength)) {
        p_.View.BeepTextLabelVisible = true;
        p_.Log.LogText("Alternate: ");
        p_.Log.LogText(alternateNote2Next_ ? "2" : "1", NoNewLine::Yes);
        const bool anotherFollows = currentTickTime_ + step < TimeAtBeat(beepLength) - step;
        const Currency toneStart = currentTickTime_;
        Sound(alternateNote2Next_ ? line.Note2 : line.Note1, p_.Song.AlternateTime, anotherFollows);
        alternateNote2Next_ = !alternateNote2Next_;
        ReadClock();
        KeepToneTime(toneStart);
    }
}

/// Waits for the rest of a tone's time: a gliding speaker returns early.
void PlaybackEngine::KeepToneTime(Currency toneStart) {
    constexpr double MsPerSecond = 1000;
    const double leftMs = p_.Song.AlternateTime - (currentTickTime_ - toneStart).ToDouble() * MsPerSecond;
    if (leftMs < 1)
        return;  // a difference between the clocks of outputs
    p_.Wait.MsgWaitObj(ToInt32(leftMs));
    ReadClock();
}

void PlaybackEngine::SilenceGeneratorInRest(const Line& line) {
    if (!p_.Output.DoNotShutUpFMOD)
        return;
    const bool play1 = p_.Song.PlayNote1Check;
    const bool play2 = p_.Song.PlayNote2Check;
    if ((play1 || play2) && (!play1 || line.Note1.Text.empty()) && (!play2 || line.Note2.Text.empty()))
        p_.Generator.FMODBeepStop();
}

/// Updates the position after "Do not update" was un-ticked during playback.
void PlaybackEngine::CatchUpPosition(Run& run) {
    if (p_.Position.NoUpdateCheck || !std::exchange(run.PositionStoodStill, false))
        return;
    ShowStartOf(run.CurrentLine);
}

void PlaybackEngine::UpdatePosition(const Run& run, const Line& line) {
    if (line.IsTriplet) {
        ShowStartOf(run.CurrentLine + 1);  // avoids rounding errors of thirds
        return;
    }
    position_ += line.Length.ToDouble() / BeatsPerWholeNote;
    p_.Position.ShowPosition(position_);
}

void PlaybackEngine::ShowStartOf(std::int32_t row) {
    p_.Position.WorkOutPlayPos(row, position_);
    p_.Position.ShowPosition(position_);
}

/// Waits for the next line's start. Returns false if playback was stopped meanwhile.
bool PlaybackEngine::WaitForNextLine(Run& run, const Line& line) {
    constexpr std::int32_t SliceMs = 15;
    // A legato line ends its wait this early, so that the next tone starts without a gap.
    constexpr Currency LegatoMargin = Currency::FromUnits(200);
    LogBlock block(p_.Log, "'Waiting for next note' section");
    ReadClock();
    if (p_.Song.NoteSilenceRatio < parameter::NoteSilenceRatio.Highest)
        run.WaitingMargin = {};
    else if (TimeAtBeat(line.Length) - currentTickTime_ > LegatoMargin)
        run.WaitingMargin = LegatoMargin;
    // The time is computed in each round, because the tempo may change during the wait.
    while (!run.OnlyThisLine && currentTickTime_ + run.WaitingMargin < TimeAtBeat(line.Length)) {
        p_.Wait.MsgWaitObj(SliceMs);
        p_.Code.WriteWait(SliceMs);
        if (!p_.State.MusicIsPlaying) {
            block.Close("MusicIsPlaying = False - skipping to EndingPlayMusic");
            return false;
        }
        ReadClock();
        p_.Log.LogText(".", NoNewLine::Yes);
    }
    playedBeats_ = playedBeats_ + line.Length;
    return true;
}

void PlaybackEngine::EndOfRange(Run& run) {
    if (run.OnlyThisLine) {
        p_.Log.LogText("MusicIsPlaying -> FALSE");
        p_.State.MusicIsPlaying = false;
        return;
    }
    run.CurrentLine = run.StartPoint - 1;
    ShowStartOf(run.StartPoint);
    if (OnRangeEnd)
        OnRangeEnd();
}

Currency PlaybackEngine::ReadClock() {
    const Currency reading = Currency::FromUnits(p_.Time.PerformanceCounter());
    currentTickTime_ = Currency::FromDouble(reading / p_.State.TickFreq);
    return reading;
}

void PlaybackEngine::ReadClockWithLog() {
    p_.Log.Text("QueryPerformanceCounter returned {}", ReadClock().ToText());
}

/// Returns the time of a beat, counted from the end of the finished lines.
Currency PlaybackEngine::TimeAtBeat(Currency beatsAfterPlayed) const {
    const Currency beats = playedBeats_ + beatsAfterPlayed;
    return startTickTime_ +
           Currency::FromDouble(Quotient(beats.ToDouble() * SecondsPerMinute, p_.Song.BPM.Get()));
}

Currency PlaybackEngine::SoundingBeats(const Line& line) const {
    const double ratio = p_.Song.NoteSilenceRatio / 100.0;
    return Currency::FromDouble(line.Length.ToDouble() * ratio);
}

void PlaybackEngine::Sound(Tone tone, double durationMs, bool continuous) {
    tone.DurationMs = durationMs;
    tone.Options.SpecificContinuous = continuous;
    p_.View.BeepTextLabelVisible = true;
    p_.Tones.Sound(tone);
    p_.View.BeepTextLabelVisible = false;
}

void PlaybackEngine::Message(const std::string& text) {
    p_.Boxes.Show({.Title = "PlayMusic sub", .Text = text, .Icon = BoxIcon::Warning});
}

/// Moves the start of the timetable so that the current line keeps its start: the new tempo applies from
/// there on, without a jump.
void PlaybackEngine::TempoChanged() {
    const std::int32_t before = std::exchange(timetableBpm_, p_.Song.BPM);
    if (!p_.State.MusicIsPlaying || before == 0 || timetableBpm_ == 0)
        return;
    const double played = playedBeats_.ToDouble() * SecondsPerMinute;
    startTickTime_ = startTickTime_ + Currency::FromDouble(played / before - played / timetableBpm_);
}

void PlaybackEngine::EnableCommonControls(bool enable) {
    p_.View.PianoKeysEnabled = enable;
    p_.View.PlayFromLineButtonEnabled = enable;
    p_.View.PlayAllButtonEnabled = enable;
}

void PlaybackEngine::EnableStopping(bool enable) {
    p_.View.StopPlayButtonEnabled = enable;
    p_.Position.NoUpdateCheckEnabled = !enable;
}

void PlaybackEngine::BeforePlayMusic() {
    const LogBlock block(p_.Log, "BeforePlayMusic()");
    p_.Log.LogText("Disabling common controls");
    EnableCommonControls(false);
    p_.Log.LogText("Enabling 'Stop playing'");
    EnableStopping(true);
}

void PlaybackEngine::AfterPlayMusic() {
    const LogBlock block(p_.Log, "AfterPlayMusic()");
    p_.Log.LogText("Enabling common controls");
    EnableCommonControls(true);
    p_.Log.LogText("Disabling 'Stop playing'");
    EnableStopping(false);
    if (p_.Mods.UseVoice.Ticked) {
        p_.Log.LogText("VoiceMainForm.ChangeVoiceVol 0");
        p_.Singer.ChangeVoiceVol(0);
    }
    p_.Log.LogText("FMODBeepStop()");
    p_.Generator.FMODBeepStop();
    if (!p_.Synchro.ShouldBeNotWaiting()) {
        p_.Log.LogText("SynchroForm.ShouldBeNotWaiting = TRUE, re-enabling 'Start Waiting' button");
        p_.Synchro.ReenableWaitButton();
    }
}

void PlaybackEngine::Start(const Request& request) {
    if (running_ == MostNestedRuns) {
        waiting_.push_back(request);
        p_.State.MusicIsPlaying = false;
        return;
    }
    const ScopedCount running(running_);
    try {
        Play(request);
        while (!waiting_.empty()) {
            const Request next = waiting_.front();
            waiting_.pop_front();
            // "Play all" does not end by itself: the next waiting click ends it before it begins.
            const bool isEnded = !next.OnlyThisLine && !waiting_.empty();
            if (!isEnded && DoesIndexExist(p_.List, next.StartPoint))
                Play(next);
        }
    } catch (const std::exception&) {
        waiting_.clear();
        throw;
    }
}

void PlaybackEngine::Play(Request request) {
    std::int32_t endPoint = request.OnlyThisLine ? request.StartPoint : p_.List.Count();
    if (!request.OnlyThisLine && endPoint == 0)
        AfterPlayMusic();
    else
        PlayMusic(request.StartPoint, endPoint, request.OnlyThisLine);
    if (!request.OnlyThisLine && p_.Synchro.CurrentlyWaiting())
        p_.Synchro.btnWait_Click();
}

void PlaybackEngine::PlayAllButton_Click() {
    Start({.StartPoint = 1, .OnlyThisLine = false});
}

void PlaybackEngine::PlayFromLineButton_Click() {
    const std::int32_t startPoint = HasRealSelection(p_.List) ? GetSelectedIndex(p_.List) : 1;
    Start({.StartPoint = startPoint, .OnlyThisLine = false});
}

void PlaybackEngine::StopPlayButton_Click() {
    p_.State.MusicIsPlaying = false;
    waiting_.clear();
}

void PlaybackEngine::MainList_ItemClick(std::int32_t row) {
    p_.DottedTriplet.UpdateModButtons();
    Start({.StartPoint = row, .OnlyThisLine = true});
}

}  // namespace quavix
