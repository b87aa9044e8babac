// SPDX-License-Identifier: MIT
#include "playback/synchro_play.h"

#include <utility>

#include <fmt/format.h>

#include "shell/scoped.h"

namespace quavix {
namespace {

constexpr std::int32_t SliceMs = 2;

/// Returns a number that increases with the time of day; the hour factor is larger than necessary.
std::int32_t TimeKey(const TimeOfDay& time) {
    constexpr std::int32_t HourFactor = 86400;
    constexpr std::int32_t MinuteFactor = 60;
    return time.Hour * HourFactor + time.Minute * MinuteFactor + time.Second;
}

TimeOfDay NextFullMinute(const TimeOfDay& now) {
    constexpr int MinutesPerHour = 60;
    constexpr int HoursPerDay = 24;
    const int minutes = now.Hour * MinutesPerHour + now.Minute + 1;
    return {minutes / MinutesPerHour % HoursPerDay, minutes % MinutesPerHour, 0};
}

}  // namespace

SynchroPlay::SynchroPlay(SynchroParts parts)
    : p_(std::move(parts)),
      startTimer_(p_.Ticks, p_.Handlers, "btnWait_Click", [this] { StartOnceFree(); }),
      currentUpdateTimer_(p_.Ticks, p_.Handlers, "CurrentUpdateTimer_Timer", [this] { ShowCurrentTime(); }) {
    p_.Mods.UseSynchro.Ticked.Watch(
        p_.Handlers.Wrap("UseSynchroCheck_Click", [this](bool ticked) { UseSynchroCheck_Click(ticked); }));
    p_.State.MusicIsPlaying.Watch([this](bool) { EnableWaitButton(); });
    chkStartInDelayEnabled = p_.Mods.UseFMOD.Enabled.Get();
    p_.Mods.UseFMOD.Enabled.Watch([this](bool enabled) { chkStartInDelayEnabled = enabled; });
    SuggestTime();
}

void SynchroPlay::UseSynchroCheck_Click(bool ticked) {
    if (ticked) {
        const auto wanted = WantedTime();
        if (!p_.State.StartIsAwaited && (!wanted || TimeKey(*wanted) <= TimeKey(p_.Time.LocalTime())))
            SuggestTime();
        ShowCurrentTime();
        constexpr std::int32_t UpdateMs = 100;
        currentUpdateTimer_.Start(UpdateMs);
        return;
    }
    currentUpdateTimer_.Stop();
    if (p_.State.StartIsAwaited && shouldBeNotWaiting_)
        StopWaiting();  // its window is closed; music that already plays continues
}

void SynchroPlay::SuggestTime() {
    const TimeOfDay start = NextFullMinute(p_.Time.LocalTime());
    txtHour.Set(start.Hour);
    txtMinute.Set(start.Minute);
    txtSecond.Set(start.Second);
}

void SynchroPlay::ShowCurrentTime() {
    const TimeOfDay now = p_.Time.LocalTime();
    lblCurrentTime = fmt::format("{}:{:02}:{:02}", now.Hour, now.Minute, now.Second);
}

void SynchroPlay::btnWait_Click() {
    if (!btnWaitEnabled)
        return;
    if (p_.State.StartIsAwaited)
        StopWaiting();
    else
        StartWaiting();
}

void SynchroPlay::StartWaiting() {
    if (!WantedTime()) {
        p_.Boxes.Show({
            .Title = "Synchronized Play Settings",
            .Text = "The time to start playing at is no time of day.\nPlease give it in whole numbers:\n"
                    "Hour: 0 to 23\nMinute: 0 to 59\nSecond: 0 to 59\n(Not waiting)",
            .Icon = BoxIcon::Warning,
        });
        return;
    }
    lblWaiting = "Currently waiting";
    lblWaitingBackColor = colour::Red;
    p_.State.StartIsAwaited = true;
    ++waitNumber_;
    btnWaitCaption = "Stop waiting";
    TimeBoxesEnabled = false;
    if (MayWait()) {
        WaitAndPlay();
        return;
    }
    p_.State.StartIsHeldUp = true;
    startTimer_.Start(SliceMs);
}

void SynchroPlay::StartOnceFree() {
    if (!MayWait() || p_.State.MusicIsPlaying)
        return;
    EndHoldUp();
    WaitAndPlay();
}

/// Returns false during a tone, which could end only after the music: a motor or a MIDI note would sound on.
/// Also false at the nesting limit.
bool SynchroPlay::MayWait() const {
    return !p_.IsSounding() && running_ < MostNestedRuns;
}

void SynchroPlay::StopWaiting() {
    EndHoldUp();
    p_.State.StartIsAwaited = false;
    shouldBeNotWaiting_ = true;
    ++waitNumber_;
    lblWaiting = "Currently NOT waiting";
    lblWaitingBackColor = colour::Red;
    btnWaitCaption = "Start waiting";
    TimeBoxesEnabled = true;
    EnableWaitButton();
}

void SynchroPlay::EndHoldUp() {
    startTimer_.Stop();
    p_.State.StartIsHeldUp = false;
}

void SynchroPlay::WaitAndPlay() {
    const ScopedCount running(running_);
    const auto wanted = WantedTime();
    if (wanted && WaitForTime(TimeKey(*wanted)))
        Play();
}

bool SynchroPlay::WaitForTime(std::int32_t key) {
    const std::int64_t waitNumber = waitNumber_;
    Currency seconds = ReadSeconds();
    while (TimeKey(p_.Time.LocalTime()) < key) {
        if (!WaitSlice(waitNumber))
            return false;
        seconds = ReadSeconds();
    }
    if (!chkStartInDelay || !chkStartInDelayEnabled)
        return true;
    // Start this much earlier, to allow for the start of playback.
    constexpr double StartUpSeconds = 0.015;
    constexpr double MsPerSecond = 1000;
    const Currency start =
        seconds + Currency::FromDouble(p_.GetFMODBufferLength() / MsPerSecond - StartUpSeconds);
    while (ReadSeconds() < start) {
        if (!WaitSlice(waitNumber))
            return false;
    }
    return true;
}

bool SynchroPlay::WaitSlice(std::int64_t waitNumber) {
    p_.Wait.MsgWaitObj(SliceMs);
    return waitNumber == waitNumber_ && !p_.State.ShuttingDown;
}

void SynchroPlay::Play() {
    // Playback re-enables the button at its end and then clicks it, while it still says "Stop waiting".
    shouldBeNotWaiting_ = false;
    EnableWaitButton();
    lblWaiting = "Playing";
    lblWaitingBackColor = colour::Yellow;
    const auto end = [this, waitNumber = waitNumber_] {
        if (waitNumber == waitNumber_)
            StopWaiting();
    };
    try {
        if (optStart)
            p_.PlayAll();
        else
            p_.PlayFromLine();
    } catch (const std::exception&) {
        end();
        throw;
    }
    end();
}

void SynchroPlay::ReenableWaitButton() {
    shouldBeNotWaiting_ = true;
    EnableWaitButton();
}

/// Enables the wait button, but not while music plays, because waiting would delay it.
void SynchroPlay::EnableWaitButton() {
    btnWaitEnabled = shouldBeNotWaiting_ && (p_.State.StartIsAwaited || !p_.State.MusicIsPlaying);
}

std::optional<TimeOfDay> SynchroPlay::WantedTime() const {
    const auto hour = txtHour.Typed();
    const auto minute = txtMinute.Typed();
    const auto second = txtSecond.Typed();
    if (!hour || !minute || !second)
        return std::nullopt;
    return TimeOfDay{*hour, *minute, *second};
}

Currency SynchroPlay::ReadSeconds() {
    return Currency::FromDouble(Currency::FromUnits(p_.Time.PerformanceCounter()) / p_.State.TickFreq);
}

}  // namespace quavix
