// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "ports/clock.h"
#include "ports/message_boxes.h"
#include "shell/currency.h"
#include "shell/event_timer.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of SynchroPlay. All must outlive it.
struct SynchroParts {
    const ModFields& Mods;
    ProgramState& State;
    Clock& Time;
    Timers& Ticks;
    Waiting& Wait;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    /// Returns true while a tone is sounding.
    std::function<bool()> IsSounding;
    /// Click the main window's buttons.
    std::function<void()> PlayAll;
    std::function<void()> PlayFromLine;
    /// Returns the delay of the sound library's tones in ms; not called without the library.
    std::function<std::int32_t()> GetFMODBufferLength;
};

/// The synchronized start: starts playback at a time of day, so that several copies of the program start
/// together. Times are compared within one day: a time that has passed today starts at once.
class SynchroPlay {
  public:
    explicit SynchroPlay(SynchroParts parts);

    // The window's controls.
    Setting txtHour{parameter::Hour};
    Setting txtMinute{parameter::Minute};
    Setting txtSecond{parameter::Second};
    Watched<bool> TimeBoxesEnabled{true};
    Watched<std::string> lblCurrentTime{"12:00:00"};
    Watched<bool> optStart{true};
    Watched<bool> optCurrent{false};
    Watched<bool> chkStartInDelay{false};
    /// True only if there is a sound library to report its delay.
    Watched<bool> chkStartInDelayEnabled;
    Watched<std::string> btnWaitCaption{"Start waiting"};
    Watched<bool> btnWaitEnabled{true};
    Watched<std::string> lblWaiting{"Currently NOT waiting"};
    Watched<std::int32_t> lblWaitingBackColor{colour::Red};

    /// Starts waiting, and returns after the playback that follows; or stops waiting. An invalid time of day
    /// shows a message and changes nothing. Does nothing while music plays, or while playback that it has
    /// started continues.
    void btnWait_Click();

    /// Returns true from the click that starts waiting until the next click of the wait button.
    bool CurrentlyWaiting() const { return p_.State.StartIsAwaited; }
    /// Returns false until playback that this has started re-enables the wait button at its end.
    bool ShouldBeNotWaiting() const { return shouldBeNotWaiting_; }
    /// Sets ShouldBeNotWaiting() and enables the wait button.
    void ReenableWaitButton();

  private:
    void UseSynchroCheck_Click(bool ticked);
    void SuggestTime();
    void ShowCurrentTime();
    void StartWaiting();
    bool MayWait() const;
    void StartOnceFree();
    void StopWaiting();
    void EndHoldUp();
    void WaitAndPlay();
    bool WaitForTime(std::int32_t key);
    void Play();
    void EnableWaitButton();
    std::optional<TimeOfDay> WantedTime() const;
    Currency ReadSeconds();
    /// Waits one slice. Returns false if the wait with this number is over.
    bool WaitSlice(std::int64_t waitNumber);

    SynchroParts p_;
    int running_ = 0;
    bool shouldBeNotWaiting_ = true;
    /// Number of the current wait, so that a stopped wait does not mistake the next one for its own.
    std::int64_t waitNumber_ = 0;
    EventTimer startTimer_;
    EventTimer currentUpdateTimer_;
};

}  // namespace quavix
